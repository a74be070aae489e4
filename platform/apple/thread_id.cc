#include "platform/thread_id.h"

#include <pthread.h>
#include <cstdint>

#include "platform/shared/kernel_thread.h"

namespace platform {

// The kernel numbers threads since 10.6.
bool HasThreadId(int major, int minor) { return major > 10 || minor > 5; }

// Not syscall(SYS_thread_selfid): its result is an int, and the numbers have 64 bits. The function
// came with 10.6, so every system that the helper runs on has it. It fails only for a thread that
// does not exist.
unsigned long long AskForThreadId() {
  std::uint64_t number = 0;
  pthread_threadid_np(nullptr, &number);
  return number;
}

}  // namespace platform
