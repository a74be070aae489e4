#include "platform/shared/text_encoding.h"

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"

namespace platform {
namespace {

NSStringEncoding ValueOf(TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::kAscii:
      return NSASCIIStringEncoding;
    case TextEncoding::kUtf8:
      return NSUTF8StringEncoding;
    case TextEncoding::kUtf16BigEndian:
      return NSUTF16BigEndianStringEncoding;
    case TextEncoding::kUtf16LittleEndian:
      return NSUTF16LittleEndianStringEncoding;
  }
  return static_cast<NSStringEncoding>(0);
}

constexpr char kMark[] = "\xEF\xBB\xBF";

bool BeginsWithMark(const char* bytes, std::size_t size) {
  return std::string(bytes, size < 3 ? size : 3) == kMark;
}

}  // namespace

bool ToUtf8(TextEncoding encoding, const char* bytes, std::size_t size, std::string& text) {
  // An object made of UTF-8 may lack a mark at its beginning.
  if (encoding == TextEncoding::kUtf8 && BeginsWithMark(bytes, size)) {
    std::string rest;
    if (!ToUtf8(encoding, bytes + 3, size - 3, rest)) return false;
    text = kMark + rest;
    return true;
  }
  const AutoreleaseScope scope;
  NSString* const object = [[[NSString alloc] initWithBytes:bytes
                                                     length:size
                                                   encoding:ValueOf(encoding)] autorelease];
  return FromFoundation(object, text);
}

bool IsUtf8(const std::string& text) {
  std::string same;
  return ToUtf8(TextEncoding::kUtf8, text.data(), text.size(), same);
}

}  // namespace platform
