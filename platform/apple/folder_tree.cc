// Systems older than 10.10 have no openat(), so entries are reached by their paths. Each component
// is checked before it is used.

#include "platform/folder_tree.h"

#include <sys/stat.h>
#include <unistd.h>

#include "platform/shared/folder_walk.h"

namespace platform {
namespace {

std::string PathOf(const std::string& folder, const std::string& name) {
  std::string path = folder;
  path += '/';
  path += name;
  return path;
}

bool IsFolder(const std::string& path) {
  struct stat attributes {};
  return lstat(path.c_str(), &attributes) == 0 && S_ISDIR(attributes.st_mode);
}

}  // namespace

bool ListTree(const std::string& folder, const std::string& prefix,
              std::vector<std::string>& names) {
  const auto open_inner = [&folder](DIR* /*parent*/, const dirent& /*entry*/,
                                    const std::string& name) {
    const std::string path = PathOf(folder, name);
    return Folder(IsFolder(path) ? opendir(path.c_str()) : nullptr);
  };
  return WalkFolders(Folder(opendir(folder.c_str())), prefix, open_inner, names);
}

bool RemoveFromTree(const std::string& folder, const std::string& name) {
  for (std::size_t slash = name.find('/'); slash != std::string::npos;
       slash = name.find('/', slash + 1)) {
    if (!IsFolder(PathOf(folder, name.substr(0, slash)))) return false;
  }
  const std::string path = PathOf(folder, name);
  // Calls the right function at once: for root, unlink() may remove a folder that is not empty.
  return IsFolder(path) ? rmdir(path.c_str()) == 0 : unlink(path.c_str()) == 0;
}

}  // namespace platform
