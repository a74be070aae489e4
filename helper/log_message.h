#pragma once

#include <pthread.h>

#include "platform/mutex.h"

namespace tarn {
class Logger;
}

// A recursive POSIX mutex. The log route depends on it, so a failure cannot be reported. Instead,
// the process ends at once with the status of the failed operation (the parent sees -21 as 235, and
// so on).
class PLATFORM_CAPABILITY("mutex") LogMutex {
 public:
  static constexpr int kInitFailed = -21;
  static constexpr int kLockFailed = -22;
  static constexpr int kUnlockFailed = -23;
  static constexpr int kDestroyFailed = -24;

  // Must be called before the other operations, and again after destroy(). Always returns true.
  bool init();
  void lock() PLATFORM_ACQUIRE();
  void unlock() PLATFORM_RELEASE();
  // The mutex must be unlocked. No thread may lock it again before init().
  void destroy();

 private:
  bool initialized_ = false;
  pthread_mutex_t mutex_{};
  pthread_mutexattr_t attributes_{};
};

// Writes one line to the helper's log. `module` is written to two columns, as the sub-domain and as
// the second detail. `detail` is the first detail, `ignored` is not used, and `format` is a printf
// format. If `module` or `component` is null, the sub-domain or the component is that of the
// previous message. A null detail is written as an empty string. Drops the message if `format` is
// null or if there is no application context. Any thread may call it, even during another call on
// the same thread. Always returns 0.
int logMessage(int level, const char* module, const char* component, const char* ignored,
               const char* detail, const char* format, ...) __attribute__((format(printf, 6, 7)));

// The log route of the helper's own code, which checks it for null before each message.
extern int (*gLogMessageFnPtr)(int level, const char* module, const char* component,
                               const char* ignored, const char* detail, const char* format, ...)
    __attribute__((format(printf, 6, 7)));

// The module name in the helper's own messages.
extern const char* gLogModuleName;

// Logs `text` verbatim, not as a format, through gLogMessageFnPtr. Does nothing while that pointer
// is null. Any thread may call it.
void LogText(int level, const char* component, const char* text);

// Held while logMessage() writes. Messages sent directly to a Logger do not take it. The
// application context initializes and destroys it.
extern LogMutex gLogMutex;

// The logger to which logMessage() writes. The application context sets it. It is null while there
// is no context.
extern tarn::Logger* gLogger PLATFORM_PT_GUARDED_BY(gLogMutex);
