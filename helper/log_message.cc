#include "helper/log_message.h"

#include <cstdarg>
#include <cstdlib>

#include "logging/logger.h"

int (*gLogMessageFnPtr)(int level, const char* module, const char* component, const char* ignored,
                        const char* detail, const char* format, ...) = logMessage;
const char* gLogModuleName = "HexHelper";
tarn::Logger* gLogger = nullptr;
LogMutex gLogMutex;

namespace {

// Skips the handlers of exit(), because other threads would keep running during them.
void ExitUnless(bool succeeded, int status) {
  if (!succeeded) std::_Exit(status);
}

}  // namespace

bool LogMutex::init() {
  ExitUnless(pthread_mutexattr_init(&attributes_) == 0 &&
                 pthread_mutexattr_settype(&attributes_, PTHREAD_MUTEX_RECURSIVE) == 0 &&
                 pthread_mutex_init(&mutex_, &attributes_) == 0,
             kInitFailed);
  initialized_ = true;
  return initialized_;
}

void LogMutex::lock() { ExitUnless(pthread_mutex_lock(&mutex_) == 0, kLockFailed); }

void LogMutex::unlock() { ExitUnless(pthread_mutex_unlock(&mutex_) == 0, kUnlockFailed); }

void LogMutex::destroy() {
  ExitUnless(pthread_mutex_destroy(&mutex_) == 0 && pthread_mutexattr_destroy(&attributes_) == 0,
             kDestroyFailed);
}

void LogText(int level, const char* component, const char* text) {
  if (!gLogMessageFnPtr) return;
  gLogMessageFnPtr(level, gLogModuleName, component, "", "", "%s", text);
}

int logMessage(int level, const char* module, const char* component, const char* /*ignored*/,
               const char* detail, const char* format, ...) {
  if (!gLogger) return 0;
  gLogMutex.lock();
  gLogger->setSubDomain(module);
  gLogger->setComponent(component);
  va_list arguments;
  va_start(arguments, format);
  gLogger->logit(static_cast<tarn::Log_Level>(level), detail, module, format, arguments);
  va_end(arguments);
  gLogMutex.unlock();
  return 0;
}
