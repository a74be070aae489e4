#include "platform/property_list.h"

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/shared/binary_property_list.h"
#include "platform/shared/xml_text.h"
#include "platform/text_file.h"

namespace platform {
namespace {

// Returns the autoreleased dictionary at the top of a list in XML, or nil. Works like
// -[NSDictionary dictionaryWithContentsOfFile:], but on bytes that PrepareXml() has made safe.
NSDictionary* TopOf(std::string xml) {
  // Property lists do not declare entities.
  if (xml.find("<!ENTITY") != std::string::npos || PrepareXml(xml)) return nil;
  NSData* const data = [NSData dataWithBytes:xml.data() length:xml.size()];
  id list = nil;
  // GNUstep raises an exception for some damaged lists.
  @try {
    list = [NSPropertyListSerialization propertyListWithData:data
                                                     options:NSPropertyListImmutable
                                                      format:NULL
                                                       error:NULL];
  } @catch (NSException*) {
    return nil;
  }
  return [list isKindOfClass:[NSDictionary class]] ? list : nil;
}

}  // namespace

bool FindPropertyListText(const std::string& bytes, const std::string& key, std::string& value) {
  if (bytes.size() > kMaxPropertyListSize) return false;
  if (IsBinaryPropertyList(bytes)) return FindInBinaryPropertyList(bytes, key, value);
  std::string xml;
  if (!DecodeText(bytes, xml)) return false;
  const AutoreleaseScope scope;
  NSString* const name = ToFoundation(key);
  const id entry = name ? [TopOf(xml) objectForKey:name] : nil;
  return [entry isKindOfClass:[NSString class]] && FromFoundation(entry, value);
}

}  // namespace platform
