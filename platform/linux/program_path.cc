#include "platform/program_path.h"

#include <sys/stat.h>
#include <unistd.h>
#include <climits>

namespace platform {
namespace {

constexpr char kLink[] = "/proc/self/exe";

// Returns whether `path` leads to the running program's file, not just to a file of the same name.
bool IsRunningProgram(const std::string& path) {
  struct stat program {};
  struct stat file {};
  return stat(kLink, &program) == 0 && stat(path.c_str(), &file) == 0 &&
         program.st_dev == file.st_dev && program.st_ino == file.st_ino;
}

}  // namespace

bool GetProgramPath(ProgramPath& path) {
  char text[PATH_MAX];  // the kernel never reports a longer path
  const ssize_t size = readlink(kLink, text, sizeof text);
  if (size <= 0 || text[0] != '/') return false;
  std::string executable(text, static_cast<std::size_t>(size));

  // The kernel's suffix for a deleted file can also be part of the name.
  static const std::string kDeleted = " (deleted)";
  if (executable.size() > kDeleted.size() &&
      executable.compare(executable.size() - kDeleted.size(), kDeleted.size(), kDeleted) == 0 &&
      !IsRunningProgram(executable)) {
    executable.resize(executable.size() - kDeleted.size());
  }

  // The kernel's path is in its shortest form, and there are no bundles.
  const std::size_t slash = executable.rfind('/');
  const std::string folder = executable.substr(0, slash == 0 ? 1 : slash);
  path = {executable, folder, folder};
  return true;
}

}  // namespace platform
