#pragma once

#include <cstddef>
#include <string>

namespace platform {

// Reads a regular file up to its end at that moment, and never blocks on another process. Returns
// false, and leaves `bytes` unchanged, when it is not a regular file, cannot be read, or has more
// than `largest` bytes.
bool ReadWholeFile(const std::string& path, std::size_t largest, std::string& bytes);

}  // namespace platform
