#pragma once

#include <string_view>

namespace platform {

// Compares bytes. Every string begins with the empty one.
inline bool BeginsWith(std::string_view string, std::string_view beginning) {
  return string.substr(0, beginning.size()) == beginning;
}

}  // namespace platform
