// Hooks for calls that take a descriptor.

#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/uio.h>
#include <unistd.h>
#include <algorithm>
#include <cstdio>

#include "tests/faults/fault_plan.h"

namespace {

size_t Half(size_t size) { return std::max<size_t>(1, size / 2); }

}  // namespace

// Defines a hook for a function that moves `size` bytes and may move fewer.
#define DATA_HOOK(family, name, parameters, arguments, exceptions)                            \
  ssize_t name parameters exceptions {                                                        \
    static auto* const real = reinterpret_cast<decltype(&name)>(faults::RealFunction(#name)); \
    const faults::Outcome outcome = faults::Decide(faults::Family::family);                   \
    if (outcome == faults::Outcome::kFail) return -1;                                         \
    if (outcome == faults::Outcome::kShort) size = Half(size);                                \
    return real arguments;                                                                    \
  }

extern "C" {

DATA_HOOK(kRead, read, (int file, void* to, size_t size), (file, to, size), noexcept(false))
DATA_HOOK(kRead, pread, (int file, void* to, size_t size, off_t place), (file, to, size, place),
          noexcept(false))
DATA_HOOK(kRead, pread64, (int file, void* to, size_t size, off64_t place), (file, to, size, place),
          noexcept(false))
DATA_HOOK(kWrite, write, (int file, const void* from, size_t size), (file, from, size),
          noexcept(false))
DATA_HOOK(kWrite, pwrite, (int file, const void* from, size_t size, off_t place),
          (file, from, size, place), noexcept(false))
DATA_HOOK(kWrite, pwrite64, (int file, const void* from, size_t size, off64_t place),
          (file, from, size, place), noexcept(false))
DATA_HOOK(kCopy, copy_file_range,
          (int from, off64_t* from_place, int to, off64_t* to_place, size_t size, unsigned flags),
          (from, from_place, to, to_place, size, flags), noexcept(false))
DATA_HOOK(kCopy, sendfile, (int to, int from, off_t* place, size_t size), (to, from, place, size),
          noexcept)
DATA_HOOK(kCopy, sendfile64, (int to, int from, off64_t* place, size_t size),
          (to, from, place, size), noexcept)

ssize_t writev(int file, const iovec* parts, int count) {
  static auto* const real = reinterpret_cast<decltype(&writev)>(faults::RealFunction("writev"));
  const faults::Outcome outcome = faults::Decide(faults::Family::kWrite);
  if (outcome == faults::Outcome::kPass) return real(file, parts, count);
  if (outcome == faults::Outcome::kFail) return -1;
  const auto* const part =
      std::find_if(parts, parts + count, [](const iovec& one) { return one.iov_len != 0; });
  if (part == parts + count) return 0;
  const iovec half{part->iov_base, Half(part->iov_len)};
  return real(file, &half, 1);
}

// The kernel closes the descriptor before it reports an error.
int close(int file) {
  static auto* const real = reinterpret_cast<decltype(&close)>(faults::RealFunction("close"));
  const int result = real(file);
  return faults::Fails(faults::Family::kClose) ? -1 : result;
}

int fclose(FILE* file) {
  static auto* const real = reinterpret_cast<decltype(&fclose)>(faults::RealFunction("fclose"));
  const int result = real(file);
  return faults::Fails(faults::Family::kClose) ? EOF : result;
}

FAULT_HOOK(kTruncate, int, -1, truncate, (const char* path, off_t size), (path, size), noexcept)
FAULT_HOOK(kTruncate, int, -1, truncate64, (const char* path, off64_t size), (path, size), noexcept)
FAULT_HOOK(kTruncate, int, -1, ftruncate, (int file, off_t size), (file, size), noexcept)
FAULT_HOOK(kTruncate, int, -1, ftruncate64, (int file, off64_t size), (file, size), noexcept)
FAULT_HOOK(kSync, int, -1, fsync, (int file), (file), noexcept(false))
FAULT_HOOK(kSync, int, -1, fdatasync, (int file), (file), noexcept(false))
FAULT_HOOK(kMap, void*, MAP_FAILED, mmap,
           (void* at, size_t size, int protection, int flags, int file, off_t place),
           (at, size, protection, flags, file, place), noexcept)
FAULT_HOOK(kMap, void*, MAP_FAILED, mmap64,
           (void* at, size_t size, int protection, int flags, int file, off64_t place),
           (at, size, protection, flags, file, place), noexcept)

}  // extern "C"
