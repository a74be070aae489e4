#include "platform/home_folder.h"

#include "platform/shared/home_path.h"

namespace platform {

bool GetHomeFolder(std::string& path) {
  if (!FindHomePath(path)) return false;
  while (path.size() > 1 && path.back() == '/')
    path.pop_back();
  return true;
}

}  // namespace platform
