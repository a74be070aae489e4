#include "platform/thread_id.h"

#include <pthread.h>

#include "platform/shared/kernel_thread.h"

namespace platform {
namespace {

thread_local unsigned long long t_thread_id = 0;

// A forked process has one thread, with the variables of the thread that forked and a number of its
// own.
void ForgetThreadId() { t_thread_id = 0; }

}  // namespace

unsigned long long GetThreadId() {
  static const bool forgotten_in_children = pthread_atfork(nullptr, nullptr, ForgetThreadId) == 0;
  if (t_thread_id == 0 || !forgotten_in_children) t_thread_id = QueryThreadId();
  return t_thread_id;
}

}  // namespace platform
