#pragma once

#include <string>

namespace TarnUtils {

// Formats numbers in decimal, with a "-" before negative numbers and without grouping.
class StringUtils {
 public:
  // Always returns true.
  static bool LongToNativeString(long long value, std::string& text);
  static std::string IntToNativeString(int value);
};

}  // namespace TarnUtils
