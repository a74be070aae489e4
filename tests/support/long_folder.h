#pragma once

#include <algorithm>
#include <filesystem>
#include <string>

// Creates a folder below `base` and returns its path, which has `size` bytes. `size` must exceed
// the length of `base` by at least 2. Throws when the folder cannot be created.
inline std::string CreateLongFolder(const std::string& base, std::size_t size) {
  constexpr std::size_t kMaxNameLength = 200;
  std::string path = base;
  while (path.size() < size) {
    const std::size_t left = size - path.size() - 1;
    // Leaves at least two bytes, for a slash and a name.
    path +=
        "/" + std::string(left <= kMaxNameLength ? left : std::min(left - 2, kMaxNameLength), 'x');
  }
  std::filesystem::create_directories(path);
  return path;
}
