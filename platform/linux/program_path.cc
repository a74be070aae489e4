#include "platform/program_path.h"

#include <sys/stat.h>
#include <unistd.h>
#include <climits>

namespace platform {
namespace {

constexpr char kLink[] = "/proc/self/exe";

// Whether the path leads to the running program's file, and not to one of its name.
bool IsRunningProgram(const std::string& path) {
  struct stat program {};
  struct stat file {};
  return stat(kLink, &program) == 0 && stat(path.c_str(), &file) == 0 &&
         program.st_dev == file.st_dev && program.st_ino == file.st_ino;
}

}  // namespace

bool GetProgramPath(ProgramPath& path) {
  char text[PATH_MAX];  // the kernel reports no longer paths
  const ssize_t size = readlink(kLink, text, sizeof text);
  if (size <= 0 || text[0] != '/') return false;
  std::string executable(text, static_cast<std::size_t>(size));

  // What the kernel adds can be the end of a name, too.
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
