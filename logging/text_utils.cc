#include "logging/text_utils.h"

#include <cstdio>

namespace tarn {

int getLogMessage(char* buffer, unsigned long size, const char* format, va_list args) {
  if (!args || size == 0) return 0;
  return std::vsnprintf(buffer, size - 1, format, args);
}

std::string getStringFromInt(int number) { return std::to_string(number); }

}  // namespace tarn
