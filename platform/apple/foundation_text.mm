#include "platform/apple/foundation_text.h"

namespace platform {

NSString* ToFoundation(const std::string& text) {
  return [[[NSString alloc] initWithBytes:text.data()
                                   length:text.size()
                                 encoding:NSUTF8StringEncoding] autorelease];
}

bool FromFoundation(NSString* object, std::string& text) {
  // As data, since NUL characters are part of it; nil for half a surrogate pair.
  NSData* const bytes = [object dataUsingEncoding:NSUTF8StringEncoding];
  if (!bytes) return false;
  text.assign(static_cast<const char*>([bytes bytes]), [bytes length]);
  return true;
}

}  // namespace platform
