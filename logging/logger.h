#pragma once

#include <string>

#include "logging/abstract_logger.h"

namespace tarn {

class LoggingCore;

// Adds its four columns to each message and passes the message to the logging core under its
// identifier. A message without a target is dropped.
//
// Any thread may log. The columns are not guarded: callers that change them while other threads log
// must synchronize.
class Logger : public AbstractLogger {
 public:
  // A null identifier counts as empty. The columns start empty.
  explicit Logger(const char* identifier);

  // Copy the text of a column. Return false and change nothing for null.
  bool setSessionId(const char* text);
  bool setDomain(const char* text);
  bool setSubDomain(const char* text);
  bool setComponent(const char* text);

  // Null details count as empty text.
  void trace(const char* format, ...) override TARN_PRINTF_METHOD(2, 3);
  void debug(const char* format, ...) override TARN_PRINTF_METHOD(2, 3);
  void info(const char* format, ...) override TARN_PRINTF_METHOD(2, 3);
  void warn(const char* detail1, const char* format, ...) override TARN_PRINTF_METHOD(3, 4);
  void error(const char* detail1, const char* format, ...) override TARN_PRINTF_METHOD(3, 4);
  void fatal(const char* detail1, const char* format, ...) override TARN_PRINTF_METHOD(3, 4);
  void log(Log_Level level, const char* detail1, const char* detail2, const char* format,
           ...) override TARN_PRINTF_METHOD(5, 6);

  // The operations above call this one, which passes its arguments to the core unchecked. The core
  // drops a null format, and null details count as empty.
  void logit(Log_Level level, const char* detail1, const char* detail2, const char* format,
             va_list args) override TARN_PRINTF_METHOD(5, 0);

  // Call the core directly, without logit(). Any null argument drops the message, even a null
  // detail.
  void logTrace(const char* component, const char* format, ...) override TARN_PRINTF_METHOD(3, 4);
  void logDebug(const char* component, const char* format, ...) override TARN_PRINTF_METHOD(3, 4);
  void logInfo(const char* component, const char* format, ...) override TARN_PRINTF_METHOD(3, 4);
  void logWarn(const char* component, const char* detail1, const char* format, ...) override
      TARN_PRINTF_METHOD(4, 5);
  void logError(const char* component, const char* detail1, const char* format, ...) override
      TARN_PRINTF_METHOD(4, 5);
  void logFatal(const char* component, const char* detail1, const char* format, ...) override
      TARN_PRINTF_METHOD(4, 5);

 private:
  void LogFor(const char* component, Log_Level level, const char* detail1, const char* format,
              va_list args) TARN_PRINTF_METHOD(5, 0);

  LoggingCore* const core_;
  std::string session_id_;
  std::string domain_;
  std::string sub_domain_;
  std::string component_;
  const std::string identifier_;
};

}  // namespace tarn
