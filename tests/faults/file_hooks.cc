// Hooks for calls that take a path.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdarg>
#include <cstdio>

#include "tests/faults/fault_plan.h"

namespace {

// Returns the mode of the file that a call of open() may create.
mode_t ModeOf(int flags, va_list arguments) {
  return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

#define OPEN_HOOK(name, parameters, ...)                                                      \
  int name parameters {                                                                       \
    static auto* const real = reinterpret_cast<decltype(&name)>(faults::RealFunction(#name)); \
    va_list arguments;                                                                        \
    va_start(arguments, flags);                                                               \
    const mode_t mode = ModeOf(flags, arguments);                                             \
    va_end(arguments);                                                                        \
    return faults::Fails(faults::Family::kOpen) ? -1 : real(__VA_ARGS__, flags, mode);        \
  }

extern "C" {

OPEN_HOOK(open, (const char* path, int flags, ...), path)
OPEN_HOOK(open64, (const char* path, int flags, ...), path)
OPEN_HOOK(openat, (int folder, const char* path, int flags, ...), folder, path)
OPEN_HOOK(openat64, (int folder, const char* path, int flags, ...), folder, path)
FAULT_HOOK(kOpen, FILE*, nullptr, fopen, (const char* path, const char* mode), (path, mode),
           noexcept(false))
FAULT_HOOK(kOpen, FILE*, nullptr, fopen64, (const char* path, const char* mode), (path, mode),
           noexcept(false))

FAULT_HOOK(kStat, int, -1, stat, (const char* path, struct stat* to), (path, to), noexcept)
FAULT_HOOK(kStat, int, -1, lstat, (const char* path, struct stat* to), (path, to), noexcept)
FAULT_HOOK(kStat, int, -1, fstat, (int file, struct stat* to), (file, to), noexcept)
FAULT_HOOK(kStat, int, -1, fstatat, (int folder, const char* path, struct stat* to, int flags),
           (folder, path, to, flags), noexcept)
FAULT_HOOK(kStat, int, -1, stat64, (const char* path, struct stat64* to), (path, to), noexcept)
FAULT_HOOK(kStat, int, -1, lstat64, (const char* path, struct stat64* to), (path, to), noexcept)
FAULT_HOOK(kStat, int, -1, fstat64, (int file, struct stat64* to), (file, to), noexcept)
FAULT_HOOK(kStat, int, -1, access, (const char* path, int mode), (path, mode), noexcept)

FAULT_HOOK(kRename, int, -1, rename, (const char* from, const char* to), (from, to), noexcept)
FAULT_HOOK(kRename, int, -1, renameat,
           (int from_folder, const char* from, int to_folder, const char* to),
           (from_folder, from, to_folder, to), noexcept)
FAULT_HOOK(kLink, int, -1, link, (const char* from, const char* to), (from, to), noexcept)
FAULT_HOOK(kLink, int, -1, linkat,
           (int from_folder, const char* from, int to_folder, const char* to, int flags),
           (from_folder, from, to_folder, to, flags), noexcept)
FAULT_HOOK(kLink, int, -1, symlink, (const char* from, const char* to), (from, to), noexcept)
FAULT_HOOK(kLink, ssize_t, -1, readlink, (const char* path, char* to, size_t size),
           (path, to, size), noexcept)
FAULT_HOOK(kUnlink, int, -1, unlink, (const char* path), (path), noexcept)
FAULT_HOOK(kUnlink, int, -1, unlinkat, (int folder, const char* path, int flags),
           (folder, path, flags), noexcept)
FAULT_HOOK(kUnlink, int, -1, rmdir, (const char* path), (path), noexcept)
FAULT_HOOK(kUnlink, int, -1, remove, (const char* path), (path), noexcept)

FAULT_HOOK(kMode, int, -1, chmod, (const char* path, mode_t mode), (path, mode), noexcept)
FAULT_HOOK(kMode, int, -1, fchmod, (int file, mode_t mode), (file, mode), noexcept)
FAULT_HOOK(kMode, int, -1, chown, (const char* path, uid_t user, gid_t group), (path, user, group),
           noexcept)
FAULT_HOOK(kMode, int, -1, fchown, (int file, uid_t user, gid_t group), (file, user, group),
           noexcept)

FAULT_HOOK(kDirectory, int, -1, mkdir, (const char* path, mode_t mode), (path, mode), noexcept)
FAULT_HOOK(kDirectory, int, -1, mkdirat, (int folder, const char* path, mode_t mode),
           (folder, path, mode), noexcept)
FAULT_HOOK(kDirectory, DIR*, nullptr, opendir, (const char* path), (path), noexcept(false))
FAULT_HOOK(kDirectory, DIR*, nullptr, fdopendir, (int file), (file), noexcept(false))
FAULT_HOOK(kDirectory, dirent*, nullptr, readdir, (DIR * folder), (folder), noexcept(false))
FAULT_HOOK(kDirectory, dirent64*, nullptr, readdir64, (DIR * folder), (folder), noexcept(false))

}  // extern "C"
