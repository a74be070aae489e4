#pragma once

#include <cstdarg>
#include <map>
#include <string>
#include <vector>

#include "logging/abstract_logger.h"
#include "logging/log_target_base.h"

namespace tarn {

// Hands each message to the targets that are registered under its identifier. There is one for the
// process, made on first use and destroyed when the process exits.
//
// Not locked: targets are registered and unregistered on one thread while no other thread logs.
// log() may be called from any thread; each target orders its own writing.
class LoggingCore {
 public:
  static LoggingCore* getInstance();
  LoggingCore(const LoggingCore&) = delete;
  LoggingCore& operator=(const LoggingCore&) = delete;

  // Files the target, which stays its owner's, under its identifier, and counts one reference to
  // it. Doing it again changes nothing but that the target is told again. False for null, and when
  // the target refuses.
  bool registerTarget(LogTargetBase* target);

  // Takes the target out again. When the last reference goes, the target is told and its answer is
  // the result. True also when nothing was registered under that identifier; false for null and for
  // a target that is not among those that were.
  bool unregisterTarget(LogTargetBase* target);

  // Gives one message to every target of `identifier`, in the order of their registration; without
  // one, or with a null format, it is dropped. `format` is that of printf; with `args` null it is
  // the text itself. What the
  // targets answer is not looked at. `timestampMs` counts from the epoch, 0 is now.
  void log(const char* identifier, Log_Level level, const char* sessionId, const char* domain,
           const char* subDomain, const char* component, const char* detail1, const char* detail2,
           const char* format, va_list args, unsigned long long timestampMs)
      TARN_PRINTF_METHOD(10, 0);

  // The process identifier in decimal.
  static std::string generateSessionId();

 private:
  LoggingCore() = default;

  std::map<std::string, std::vector<LogTargetBase*>, std::less<>> targets_;
};

}  // namespace tarn
