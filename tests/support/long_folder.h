#pragma once

#include <algorithm>
#include <filesystem>
#include <string>

// A new folder somewhere in `base`, whose path has `size` bytes: at least 3 more than that of
// `base`.
inline std::string CreateLongFolder(const std::string& base, std::size_t size) {
  constexpr std::size_t kLongestName = 200;
  std::string path = base;
  while (path.size() < size) {
    const std::size_t left = size - path.size() - 1;
    // What then is left has room for a slash and a name.
    path += "/" + std::string(left <= kLongestName ? left : std::min(left - 2, kLongestName), 'x');
  }
  std::filesystem::create_directories(path);
  return path;
}
