#pragma once

#include <cstdarg>

#include "logging/log_level.h"

// Makes the compiler check the arguments of a printf-style member function. The object counts as
// the first parameter.
#define TARN_PRINTF_METHOD(format_index, first_argument) \
  __attribute__((format(printf, format_index, first_argument)))

namespace tarn {

// The interface of a logger for code outside of the library. Formats are those of printf. Details
// are free text for two columns of the line. A null format or a null component drops the message.
// The order of the operations fixes the virtual table and must not change. Objects are never
// deleted through this interface.
class AbstractLogger {
 public:
  virtual void trace(const char* format, ...) TARN_PRINTF_METHOD(2, 3) = 0;
  virtual void debug(const char* format, ...) TARN_PRINTF_METHOD(2, 3) = 0;
  virtual void info(const char* format, ...) TARN_PRINTF_METHOD(2, 3) = 0;
  virtual void warn(const char* detail1, const char* format, ...) TARN_PRINTF_METHOD(3, 4) = 0;
  virtual void error(const char* detail1, const char* format, ...) TARN_PRINTF_METHOD(3, 4) = 0;
  virtual void fatal(const char* detail1, const char* format, ...) TARN_PRINTF_METHOD(3, 4) = 0;
  virtual void log(Log_Level level, const char* detail1, const char* detail2, const char* format,
                   ...) TARN_PRINTF_METHOD(5, 6) = 0;

  // Logs one message; all operations above call this one. `args` is used up.
  virtual void logit(Log_Level level, const char* detail1, const char* detail2, const char* format,
                     va_list args) TARN_PRINTF_METHOD(5, 0) = 0;

  // Log with `component` for this one message, in place of the logger's own component.
  virtual void logTrace(const char* component, const char* format, ...)
      TARN_PRINTF_METHOD(3, 4) = 0;
  virtual void logDebug(const char* component, const char* format, ...)
      TARN_PRINTF_METHOD(3, 4) = 0;
  virtual void logInfo(const char* component, const char* format, ...) TARN_PRINTF_METHOD(3, 4) = 0;
  virtual void logWarn(const char* component, const char* detail1, const char* format, ...)
      TARN_PRINTF_METHOD(4, 5) = 0;
  virtual void logError(const char* component, const char* detail1, const char* format, ...)
      TARN_PRINTF_METHOD(4, 5) = 0;
  virtual void logFatal(const char* component, const char* detail1, const char* format, ...)
      TARN_PRINTF_METHOD(4, 5) = 0;

 protected:
  ~AbstractLogger() = default;
};

}  // namespace tarn
