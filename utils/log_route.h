#pragma once

#include "logging/abstract_logger.h"

namespace TarnUtils {

// The shape of a log function: level, module, component, a text that is not used, a detail text,
// and a printf-style format with its arguments. The result is not looked at.
typedef int (*LogFunction)(int level, const char* module, const char* component,
                           const char* ignored, const char* detail, const char* format, ...)
    __attribute__((format(printf, 6, 7)));

// Says where the messages of this library go. `logFunction`, a LogFunction, is preferred; `logger`,
// a tarn::AbstractLogger* that stays the caller's, is used when there is no function; without both,
// messages are dropped. Both replace what was set before. Always returns true.
//
// Not locked: to be called while no other thread logs, as a rule once at start.
bool SetLogger(void* logFunction, void* logger);

// The module text of every message of this library.
extern const char kLogModule[];

// The log function for a component whose own logger is `own`; null when the message goes to a
// logger object or nowhere.
LogFunction LogFunctionFor(const tarn::AbstractLogger* own);

// Gives the message to `own`, or to the logger that SetLogger() set when `own` is null.
__attribute__((format(printf, 4, 5))) void LogToObject(tarn::AbstractLogger* own,
                                                       tarn::Log_Level level, const char* component,
                                                       const char* format, ...);

}  // namespace TarnUtils

// Sends one message of a component of this library: to the component's own logger `own` when it is
// not null, else the way that SetLogger() set. What follows `component` is a format literal with
// its arguments; they are handed on as they are, so only a macro can take them.
#define TARN_UTILS_LOG(own, level, component, ...)                                \
  do {                                                                            \
    if (const auto log_function = TarnUtils::LogFunctionFor(own)) {               \
      log_function(level, TarnUtils::kLogModule, component, "", "", __VA_ARGS__); \
    } else {                                                                      \
      TarnUtils::LogToObject(own, level, component, __VA_ARGS__);                 \
    }                                                                             \
  } while (false)
