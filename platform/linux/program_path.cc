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

bool GetProgramPath(std::string& executable, std::string& bundle) {
  char text[PATH_MAX];  // the kernel tells no longer paths
  const ssize_t size = readlink(kLink, text, sizeof text);
  if (size <= 0 || text[0] != '/') return false;
  std::string path(text, static_cast<std::size_t>(size));

  // What the kernel adds can be the end of a name, too.
  static const std::string kDeleted = " (deleted)";
  if (path.size() > kDeleted.size() &&
      path.compare(path.size() - kDeleted.size(), kDeleted.size(), kDeleted) == 0 &&
      !IsRunningProgram(path)) {
    path.resize(path.size() - kDeleted.size());
  }

  const std::size_t slash = path.rfind('/');
  bundle = path.substr(0, slash == 0 ? 1 : slash);
  executable = path;
  return true;
}

}  // namespace platform
