#include "platform/thread_id.h"

#include <pthread.h>
#include <cstdint>

#include "platform/shared/kernel_thread.h"

namespace platform {

// Threads have had numbers since macOS 10.6.
bool HasThreadId(int major, int minor) { return major > 10 || minor > 5; }

// The numbers have 64 bits, but syscall(SYS_thread_selfid) returns an int. pthread_threadid_np()
// exists since macOS 10.6, so it is available wherever the helper runs. It fails only for a thread
// that does not exist.
unsigned long long QueryThreadId() {
  std::uint64_t number = 0;
  pthread_threadid_np(nullptr, &number);
  return number;
}

}  // namespace platform
