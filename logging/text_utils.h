#pragma once

#include <cstdarg>
#include <string>

namespace tarn {

// Formats like vsnprintf() into the first `size` - 1 bytes of `buffer`, including the terminating
// zero, so the last byte stays unused. Returns the result of vsnprintf(), which is negative when a
// conversion fails. Returns 0 and does not change `buffer` when `args` is a null list or `size` is
// 0. Any thread may call it.
int getLogMessage(char* buffer, unsigned long size, const char* format, va_list args)
    __attribute__((format(printf, 3, 0)));

// Returns the number in decimal.
std::string getStringFromInt(int number);

}  // namespace tarn
