#include "platform/text_file.h"

#include "platform/begins_with.h"
#include "platform/shared/text_encoding.h"
#include "platform/shared/whole_file.h"

namespace platform {
namespace {

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
  // RFC 2781 recommends big-endian for UTF-16 without a mark. CoreFoundation's published source
  // does the same for kCFStringEncodingUTF16: on a little-endian machine it swaps the bytes unless
  // it finds that machine's mark. Whether Foundation's file reader uses this decoder was not
  // confirmed on a Mac.
  const std::size_t mark = BeginsWith(bytes, "\xFE\xFF") ? 2 : 0;
  return Decode(TextEncoding::kUtf16BigEndian, bytes, mark, text);
}

bool ReadTextFile(const std::string& path, std::string& text) {
  std::string bytes;
  return ReadWholeFile(path, kMaxTextFileSize, bytes) && DecodeText(bytes, text);
}

}  // namespace platform
