#pragma once

#include "logging/abstract_logger.h"

namespace TarnUtils {

// The type of a log function: level, module, component, an unused text, a detail text, and a
// printf-style format with its arguments. The result is ignored.
typedef int (*LogFunction)(int level, const char* module, const char* component,
                           const char* ignored, const char* detail, const char* format, ...)
    __attribute__((format(printf, 6, 7)));

// Sets the destination of this library's messages: `logFunction`, a LogFunction, or, when that is
// null, `logger`, a tarn::AbstractLogger* that the caller owns. Messages are dropped when both are
// null. Replaces both previous values. Always returns true.
//
// Not thread-safe: call it while no other thread logs, usually once at startup.
bool SetLogger(void* logFunction, void* logger);

// The module of this library's messages to a log function. Logger objects receive no module.
extern const char kLogModule[];

// Returns the log function set by SetLogger() when `own`, a component's own logger, is null.
// Returns null when the message must go through LogToObject().
LogFunction LogFunctionFor(const tarn::AbstractLogger* own);

// Passes the message to `own`, or to the logger set by SetLogger() when `own` is null. Drops the
// message when there is no logger.
__attribute__((format(printf, 4, 5))) void LogToObject(tarn::AbstractLogger* own,
                                                       tarn::Log_Level level, const char* component,
                                                       const char* format, ...);

}  // namespace TarnUtils

// Logs one message of a component of this library: through the component's own logger `own` when it
// is not null, otherwise through the route set by SetLogger(). The arguments after `component` are
// a format literal and its arguments. A macro is needed, because a variadic function could not
// forward them.
#define TARN_UTILS_LOG(own, level, component, ...)                                \
  do {                                                                            \
    if (const auto log_function = TarnUtils::LogFunctionFor(own)) {               \
      log_function(level, TarnUtils::kLogModule, component, "", "", __VA_ARGS__); \
    } else {                                                                      \
      TarnUtils::LogToObject(own, level, component, __VA_ARGS__);                 \
    }                                                                             \
  } while (false)
