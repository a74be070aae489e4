#include "platform/thread_id.h"

#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace platform {
namespace {

thread_local unsigned long long t_thread_id = 0;

// A new process has one thread, with the variables of the thread that forked and a number of its
// own.
void ForgetThreadId() { t_thread_id = 0; }

}  // namespace

bool HasThreadId(int /*major*/, int /*minor*/) { return true; }

unsigned long long GetThreadId() {
  static const bool forgotten_in_children = pthread_atfork(nullptr, nullptr, ForgetThreadId) == 0;
  if (t_thread_id == 0 || !forgotten_in_children) {
    t_thread_id = static_cast<unsigned long long>(syscall(SYS_gettid));
  }
  return t_thread_id;
}

}  // namespace platform
