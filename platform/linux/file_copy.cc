#include "platform/file_copy.h"

#include <sys/sendfile.h>
#include <unistd.h>
#include <cerrno>
#include <cstddef>

#include "platform/retry.h"
#include "platform/shared/block_copy.h"

namespace platform {
namespace {

// At a time. The kernel ends a single call somewhat below 2 GiB.
constexpr std::size_t kMost = 1 << 30;

enum class Result { kDone, kFailed, kOtherWay };

// What a kernel or file system says that does not copy between two such files.
bool IsUnsupported(int error) {
  return error == ENOSYS || error == EXDEV || error == EINVAL || error == EOPNOTSUPP ||
         error == EBADF || error == EPERM;
}

// Repeats what copies a part and moves both positions, until nothing is left.
template <typename CopySome>
Result CopyAll(const CopySome& copy_some) {
  for (;;) {
    const ssize_t copied = RetryWhenInterrupted(copy_some);
    if (copied == 0) return Result::kDone;
    if (copied > 0) continue;
    return IsUnsupported(errno) ? Result::kOtherWay : Result::kFailed;
  }
}

}  // namespace

bool CopyFileContent(int from, int to) {
  // What one way has copied before it gives up is behind both positions, so the next goes on there.
  Result result = CopyAll([&] { return copy_file_range(from, nullptr, to, nullptr, kMost, 0); });
  if (result == Result::kOtherWay) {
    result = CopyAll([&] { return sendfile(to, from, nullptr, kMost); });
  }
  if (result == Result::kOtherWay) return CopyBlocks(from, to);
  return result == Result::kDone;
}

}  // namespace platform
