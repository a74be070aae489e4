#include "platform/shared/text_encoding.h"

#include <iconv.h>
#include <cstdint>
#include <utility>

namespace platform {
namespace {

const char* NameOf(TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::kAscii:
      return "ASCII";
    case TextEncoding::kUtf8:
      return "UTF-8";
    case TextEncoding::kUtf16BigEndian:
      return "UTF-16BE";
    case TextEncoding::kUtf16LittleEndian:
      return "UTF-16LE";
  }
  return "";  // iconv rejects this name
}

// Returns whether UTF-8 from iconv stays within Unicode: iconv also converts code points beyond its
// end.
bool IsWithinUnicode(const std::string& text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte > 0xF4 || (byte == 0xF4 && static_cast<unsigned char>(text[i + 1]) > 0x8F)) {
      return false;
    }
  }
  return true;
}

class Converter {
 public:
  explicit Converter(const char* encoding) : handle_(iconv_open("UTF-8", encoding)) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (is_open()) iconv_close(handle_);
  }

  // iconv_open() returns the pointer value -1 after a failure.
  bool is_open() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  bool Convert(const char* bytes, std::size_t size, std::string& text) const {
    // UTF-16 grows the most: from two bytes to three.
    std::string converted(size + size / 2, '\0');
    char* input = const_cast<char*>(bytes);  // iconv does not write to it
    char* output = converted.data();
    std::size_t left = converted.size();
    if (iconv(handle_, &input, &size, &output, &left) != 0) return false;
    converted.resize(converted.size() - left);
    if (!IsWithinUnicode(converted)) return false;
    text = std::move(converted);
    return true;
  }

 private:
  iconv_t handle_;
};

}  // namespace

bool ToUtf8(TextEncoding encoding, const char* bytes, std::size_t size, std::string& text) {
  const Converter converter(NameOf(encoding));
  return converter.is_open() && converter.Convert(bytes, size, text);
}

bool IsUtf8(const std::string& text) {
  std::string same;
  return ToUtf8(TextEncoding::kUtf8, text.data(), text.size(), same);
}

}  // namespace platform
