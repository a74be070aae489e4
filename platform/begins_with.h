#pragma once

#include <string_view>

namespace platform {

// Returns whether `string` begins with the bytes of `beginning`. Every string begins with the empty
// string.
inline bool BeginsWith(std::string_view string, std::string_view beginning) {
  return string.substr(0, beginning.size()) == beginning;
}

}  // namespace platform
