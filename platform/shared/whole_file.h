#pragma once

#include <cstddef>
#include <string>

namespace platform {

// Reads a regular file to its end, wherever that is at that moment, and never waits for anybody.
// False, with `bytes` as it was, when it is none, cannot be read, or has more than `largest` bytes.
bool ReadWholeFile(const std::string& path, std::size_t largest, std::string& bytes);

}  // namespace platform
