#include "platform/file_copy.h"

#include <sys/sendfile.h>
#include <unistd.h>
#include <cerrno>
#include <cstddef>

#include "platform/retry.h"
#include "platform/shared/block_copy.h"

namespace platform {
namespace {

// Bytes per call. The kernel ends a single call somewhat below 2 GiB.
constexpr std::size_t kMaxChunk = 1 << 30;

enum class Result { kDone, kFailed, kOtherWay };

// Returns whether `error` means that the kernel or the file system cannot copy between these two
// files.
bool IsUnsupported(int error) {
  return error == ENOSYS || error == EXDEV || error == EINVAL || error == EOPNOTSUPP ||
         error == EBADF || error == EPERM;
}

// Calls `copy_some`, which copies a part and advances both positions, until nothing is left.
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
  // A method that gives up has advanced both positions past what it copied, so the next method
  // continues there.
  Result result =
      CopyAll([&] { return copy_file_range(from, nullptr, to, nullptr, kMaxChunk, 0); });
  if (result == Result::kOtherWay) {
    result = CopyAll([&] { return sendfile(to, from, nullptr, kMaxChunk); });
  }
  if (result == Result::kOtherWay) return CopyBlocks(from, to);
  return result == Result::kDone;
}

}  // namespace platform
