#pragma once

#include <string>

namespace TarnUtils {

// Numbers as text: decimal, with a "-" in front of negative ones, without grouping.
class StringUtils {
 public:
  // Always returns true.
  static bool LongToNativeString(long long value, std::string& text);
  static std::string IntToNativeString(int value);
};

}  // namespace TarnUtils
