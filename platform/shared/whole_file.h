#pragma once

#include <cstddef>
#include <string>

namespace platform {

// Reads a regular file until a read finds its end, so bytes added during the call are read as well.
// Never blocks on another process. Returns false, and leaves `bytes` unchanged, when the file is
// not a regular file, cannot be read, or has more than `largest` bytes.
bool ReadWholeFile(const std::string& path, std::size_t largest, std::string& bytes);

}  // namespace platform
