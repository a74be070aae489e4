#pragma once

#include <pthread.h>

namespace tarn {
class Logger;
}

// A POSIX mutex that the thread which holds it may lock again. The log route hangs on it, so there
// is no way to report a failure: the process ends at once, with the status of the operation (-21 is
// 235 for the parent, and so on).
class LogMutex {
 public:
  static constexpr int kInitFailed = -21;
  static constexpr int kLockFailed = -22;
  static constexpr int kUnlockFailed = -23;
  static constexpr int kDestroyFailed = -24;

  // Before all others, and again after destroy(). Always returns true.
  bool init();
  void lock();
  void unlock();
  // Nobody holds it, and nobody locks it any more.
  void destroy();

 private:
  bool initialized_ = false;
  pthread_mutex_t mutex_{};
  pthread_mutexattr_t attributes_{};
};

// Writes one line to the helper's log, with the module as sub-domain and second detail; `ignored`
// is not used, `format` is that of printf. A null module or component leaves that column as the
// last message had it, a null format drops the message. So does a process without an application
// context. Any thread may call it, also from within another call of the same thread. Always returns
// 0.
int logMessage(int level, const char* module, const char* component, const char* ignored,
               const char* detail, const char* format, ...) __attribute__((format(printf, 6, 7)));

// The route that the helper's own code logs through, after a look whether it is null.
extern int (*gLogMessageFnPtr)(int level, const char* module, const char* component,
                               const char* ignored, const char* detail, const char* format, ...)
    __attribute__((format(printf, 6, 7)));

// The module of the helper's own messages.
extern const char* gLogModuleName;

// Logs `text` as it is, not as a format, through gLogMessageFnPtr. Does nothing while that is null.
// Any thread may call it.
void LogText(int level, const char* component, const char* text);

// What logMessage() writes to; null while there is no application context, which sets it.
extern tarn::Logger* gLogger;

// Held for each message. The application context initialises and destroys it.
extern LogMutex gLogMutex;
