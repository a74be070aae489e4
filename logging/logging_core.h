#pragma once

#include <cstdarg>
#include <map>
#include <string>
#include <vector>

#include "logging/abstract_logger.h"
#include "logging/log_target_base.h"

namespace tarn {

// Passes each message to the targets registered under its identifier. The process has one core,
// created on first use and destroyed when the process exits.
//
// One thread registers and unregisters targets while no other thread logs. Any thread may call
// log(); each target synchronizes its own writing.
class LoggingCore {
 public:
  static LoggingCore* getInstance();
  LoggingCore(const LoggingCore&) = delete;
  LoggingCore& operator=(const LoggingCore&) = delete;

  // Registers the target under its identifier and increments its reference count. The caller keeps
  // ownership. A repeated call only calls onRegisterTarget() again. Returns false for null and when
  // the target refuses; a target that refuses a repeated call stays registered.
  bool registerTarget(LogTargetBase* target);

  // Unregisters the target. After the last reference, calls onUnregisterTarget() and returns its
  // result. Returns true if the identifier has no targets. Returns false for null, and if the
  // identifier has other targets but not this one.
  bool unregisterTarget(LogTargetBase* target);

  // Passes one message to every target of `identifier` in the order of registration. Drops the
  // message if there is no target or if `identifier` or `format` is null. `format` is a printf
  // format; if `args` is null, `format` is the text itself. Ignores the results of the targets.
  // `timestampMs` is in milliseconds since the epoch; 0 stands for now.
  void log(const char* identifier, Log_Level level, const char* sessionId, const char* domain,
           const char* subDomain, const char* component, const char* detail1, const char* detail2,
           const char* format, va_list args, unsigned long long timestampMs)
      TARN_PRINTF_METHOD(10, 0);

  // Returns the process identifier in decimal.
  static std::string generateSessionId();

 private:
  LoggingCore() = default;

  std::map<std::string, std::vector<LogTargetBase*>, std::less<>> targets_;
};

}  // namespace tarn
