#include "platform/thread_id.h"

#include <sys/syscall.h>
#include <unistd.h>

#include "platform/shared/kernel_thread.h"

namespace platform {

// The call came with 10.6.
bool HasThreadId(int major, int minor) { return major > 10 || minor > 5; }

unsigned long long AskForThreadId() {
  return static_cast<unsigned long long>(syscall(SYS_thread_selfid));
}

}  // namespace platform
