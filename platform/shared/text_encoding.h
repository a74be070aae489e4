#pragma once

#include <cstddef>
#include <string>

namespace platform {

enum class TextEncoding { kAscii, kUtf8, kUtf16BigEndian, kUtf16LittleEndian };

// Converts `size` bytes of an encoding. False, with `text` as it was, when they are not valid in
// it, down to surrogates, overlong forms and a character that is cut off. A byte order mark is a
// character like any other. Each system has a body of its own.
bool ToUtf8(TextEncoding encoding, const char* bytes, std::size_t size, std::string& text);

bool IsUtf8(const std::string& text);

}  // namespace platform
