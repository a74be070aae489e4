#include "platform/home_folder.h"

#include <sys/stat.h>

#include "platform/shared/home_path.h"

namespace platform {

bool GetHomeFolder(std::string& path) {
  if (!FindHomePath(path)) return false;
  while (path.size() > 1 && path.back() == '/')
    path.pop_back();
  // As a rule it exists already. Where it cannot be made, the first use of it fails.
  mkdir(path.c_str(), 0700);
  return true;
}

}  // namespace platform
