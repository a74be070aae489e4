#pragma once

#include <string>

namespace TarnUtils {

// Converts the letters A to Z to lower case. All other bytes stay, regardless of the process's
// locale.
inline char ToLowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string ToLowerAscii(std::string text) {
  for (char& c : text)
    c = ToLowerAscii(c);
  return text;
}

}  // namespace TarnUtils
