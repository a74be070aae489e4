#include "platform/text_file.h"

#include "platform/shared/text_encoding.h"
#include "platform/shared/whole_file.h"

namespace platform {
namespace {

constexpr bool kLittleEndian = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;

bool BeginsWith(const std::string& bytes, const char* beginning) {
  return bytes.rfind(beginning, 0) == 0;
}

bool Decode(TextEncoding encoding, const std::string& bytes, std::size_t mark, std::string& text) {
  return ToUtf8(encoding, bytes.data() + mark, bytes.size() - mark, text);
}

}  // namespace

bool DecodeText(const std::string& bytes, std::string& text) {
  if (Decode(TextEncoding::kUtf8, bytes, BeginsWith(bytes, "\xEF\xBB\xBF") ? 3 : 0, text))
    return true;
  // Neither mark is valid UTF-8.
  if (BeginsWith(bytes, "\xFF\xFE"))
    return Decode(TextEncoding::kUtf16LittleEndian, bytes, 2, text);
  if (BeginsWith(bytes, "\xFE\xFF")) return Decode(TextEncoding::kUtf16BigEndian, bytes, 2, text);
  return Decode(kLittleEndian ? TextEncoding::kUtf16LittleEndian : TextEncoding::kUtf16BigEndian,
                bytes, 0, text);
}

bool ReadTextFile(const std::string& path, std::string& text) {
  std::string bytes;
  return ReadWholeFile(path, kLargestTextFile, bytes) && DecodeText(bytes, text);
}

}  // namespace platform
