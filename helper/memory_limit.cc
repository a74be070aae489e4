#include "helper/memory_limit.h"

#include "utils/string_utils.h"

std::string FormatMemory(unsigned long long bytes) {
  return TarnUtils::StringUtils::IntToNativeString(static_cast<int>(bytes >> 20)) + " MB";
}
