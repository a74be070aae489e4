#pragma once

#include <cstddef>
#include <string>

namespace platform {

enum class TextEncoding { kAscii, kUtf8, kUtf16BigEndian, kUtf16LittleEndian };

// Converts `size` bytes of an encoding to UTF-8. Returns false, and leaves `text` unchanged, when
// the bytes are invalid in that encoding. Invalid bytes include truncated characters, overlong
// forms, unpaired surrogates in UTF-16 and all surrogates in UTF-8. Treats a byte order mark like
// any other character. Each system has its own implementation.
bool ToUtf8(TextEncoding encoding, const char* bytes, std::size_t size, std::string& text);

// Returns whether ToUtf8() accepts `text` as UTF-8.
bool IsUtf8(const std::string& text);

}  // namespace platform
