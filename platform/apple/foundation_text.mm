#include "platform/apple/foundation_text.h"

namespace platform {

NSString* ToFoundation(const std::string& text) {
  return [[[NSString alloc] initWithBytes:text.data()
                                   length:text.size()
                                 encoding:NSUTF8StringEncoding] autorelease];
}

bool FromFoundation(NSString* object, std::string& text) {
  // Uses data, because the text may contain NUL characters. `bytes` is nil for an unpaired
  // surrogate.
  NSData* const bytes = [object dataUsingEncoding:NSUTF8StringEncoding];
  if (!bytes) return false;
  text.assign(static_cast<const char*>([bytes bytes]), [bytes length]);
  return true;
}

}  // namespace platform
