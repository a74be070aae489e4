// Replaces functions of the C library.

#include "tests/logging/system_faults.h"

#include <fcntl.h>
#include <sys/shm.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

SystemFaults g_faults;

namespace {

bool Fails(int error, const char* path) {
  if (error == 0 || !std::strstr(path, g_faults.path)) return false;
  errno = error;
  return true;
}

void CallOnce(std::function<void()>& callback) {
  const std::function<void()> taken = std::exchange(callback, {});
  if (taken) taken();
}

}  // namespace

extern "C" {

ssize_t read(int __fd, void* __buf, std::size_t __nbytes) {
  if (Fails(g_faults.read, g_faults.path)) return -1;
  const iovec block{__buf, __nbytes};
  return readv(__fd, &block, 1);
}

ssize_t pread(int __fd, void* __buf, std::size_t __nbytes, off_t __offset) {
  if (Fails(g_faults.pread, g_faults.path)) return -1;
  const iovec block{__buf, __nbytes};
  return preadv(__fd, &block, 1, __offset);
}

// Streams call this function. Both names stand for one function where files have 64-bit sizes.
FILE* fopen64(const char* __filename, const char* __modes) {
  FILE* const file = fopen(__filename, __modes);
  CallOnce(g_faults.after_open);
  return file;
}

int ftruncate(int __fd, off_t __length) noexcept {
  if (Fails(g_faults.ftruncate, g_faults.path)) return -1;
  const auto result = static_cast<int>(syscall(SYS_ftruncate, __fd, __length));
  CallOnce(g_faults.after_ftruncate);
  return result;
}

void* shmat(int __shmid, const void* __shmaddr, int __shmflg) noexcept {
  // The system call has the same result as the function.
  long result = -1;
  if (!Fails(g_faults.shmat, g_faults.path)) {
    result = syscall(SYS_shmat, __shmid, __shmaddr, __shmflg);
  }
  void* address = nullptr;
  std::memcpy(&address, &result, sizeof address);
  return address;
}

int link(const char* __from, const char* __to) noexcept {
  if (Fails(g_faults.link, __to)) return -1;
  return linkat(AT_FDCWD, __from, AT_FDCWD, __to, 0);
}

int unlink(const char* __name) noexcept {
  if (Fails(g_faults.unlink, __name)) return -1;
  return unlinkat(AT_FDCWD, __name, 0);
}

int lstat(const char* __file, struct stat* __buf) noexcept {
  if (Fails(g_faults.lstat, __file)) return -1;
  return fstatat(AT_FDCWD, __file, __buf, AT_SYMLINK_NOFOLLOW);
}
}
