#include "platform/shared/text_encoding.h"

#include <algorithm>
#include <cstring>

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
constexpr std::size_t kMarkSize = sizeof kMark - 1;

// Returns the number of bytes of the byte order marks at the beginning of a text in UTF-8.
std::size_t SizeOfMarks(const char* bytes, std::size_t size) {
  std::size_t marks = 0;
  while (size - marks >= kMarkSize && std::memcmp(bytes + marks, kMark, kMarkSize) == 0)
    marks += kMarkSize;
  return marks;
}

// Returns whether the bytes are malformed in a way that Foundation may accept.
bool IsMalformed(TextEncoding encoding, const char* bytes, std::size_t size) {
  switch (encoding) {
    case TextEncoding::kAscii:
      return std::any_of(bytes, bytes + size, [](char c) { return (c & 0x80) != 0; });
    case TextEncoding::kUtf8:
      return false;
    case TextEncoding::kUtf16BigEndian:
    case TextEncoding::kUtf16LittleEndian:
      return size % 2 != 0;
  }
  return true;
}

}  // namespace

bool ToUtf8(TextEncoding encoding, const char* bytes, std::size_t size, std::string& text) {
  if (IsMalformed(encoding, bytes, size)) return false;
  // Foundation may drop a byte order mark at the beginning of UTF-8.
  const std::size_t marks = encoding == TextEncoding::kUtf8 ? SizeOfMarks(bytes, size) : 0;
  const AutoreleaseScope scope;
  NSString* const object = [[[NSString alloc] initWithBytes:bytes + marks
                                                     length:size - marks
                                                   encoding:ValueOf(encoding)] autorelease];
  std::string rest;
  if (!FromFoundation(object, rest)) return false;
  text.assign(bytes, marks).append(rest);
  return true;
}

bool IsUtf8(const std::string& text) {
  std::string same;
  return ToUtf8(TextEncoding::kUtf8, text.data(), text.size(), same);
}

}  // namespace platform
