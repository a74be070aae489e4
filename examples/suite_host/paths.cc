#include "examples/suite_host/paths.h"

#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>

std::string AbsolutePath(const std::string& path) {
  char* resolved = realpath(path.c_str(), nullptr);
  if (!resolved) return {};
  std::string result(resolved);
  std::free(resolved);
  return result;
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

bool IsProgram(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         access(path.c_str(), X_OK) == 0;
}
