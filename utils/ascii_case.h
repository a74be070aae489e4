#pragma once

#include <string>

namespace TarnUtils {

// The letters A to Z in lower case; all other bytes stay, whatever the process's locale is.
inline char ToLowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string ToLowerAscii(std::string text) {
  for (char& c : text)
    c = ToLowerAscii(c);
  return text;
}

}  // namespace TarnUtils
