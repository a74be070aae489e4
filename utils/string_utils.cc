#include "utils/string_utils.h"

namespace TarnUtils {

bool StringUtils::LongToNativeString(long long value, std::string& text) {
  text = std::to_string(value);
  return true;
}

std::string StringUtils::IntToNativeString(int value) { return std::to_string(value); }

}  // namespace TarnUtils
