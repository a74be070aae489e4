#pragma once

#include <cstddef>
#include <string>

namespace platform {

// Converts `size` bytes of an encoding that iconv knows by that name. False, with `text` as it was,
// when they are not valid in it, down to surrogates, overlong forms and a character that is cut
// off.
bool ToUtf8(const char* encoding, const char* bytes, std::size_t size, std::string& text);

bool IsUtf8(const std::string& text);

}  // namespace platform
