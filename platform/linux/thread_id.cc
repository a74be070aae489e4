#include "platform/thread_id.h"

#include <sys/syscall.h>
#include <unistd.h>

#include "platform/shared/kernel_thread.h"

namespace platform {

bool HasThreadId(int /*major*/, int /*minor*/) { return true; }

unsigned long long QueryThreadId() { return static_cast<unsigned long long>(syscall(SYS_gettid)); }

}  // namespace platform
