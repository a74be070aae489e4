#include "platform/folder_tree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/shared/folder_walk.h"

namespace platform {
namespace {

constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

// Returns null when the folder cannot be opened.
Folder OpenFolder(int parent, const char* name, int more_flags) {
  const int descriptor = openat(parent, name, kFolderFlags | more_flags);
  if (descriptor == -1) return nullptr;
  DIR* const folder = fdopendir(descriptor);
  if (!folder) close(descriptor);
  return Folder(folder);
}

bool IsFolder(DIR* parent, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
  struct stat attributes {};
  return fstatat(dirfd(parent), entry.d_name, &attributes, AT_SYMLINK_NOFOLLOW) == 0 &&
         S_ISDIR(attributes.st_mode);
}

Folder OpenInner(DIR* parent, const dirent& entry, const std::string& /*name*/) {
  return IsFolder(parent, entry) ? OpenFolder(dirfd(parent), entry.d_name, O_NOFOLLOW) : nullptr;
}

}  // namespace

bool ListTree(const std::string& folder, const std::string& prefix,
              std::vector<std::string>& names) {
  return WalkFolders(OpenFolder(AT_FDCWD, folder.c_str(), 0), prefix, OpenInner, names);
}

bool RemoveFromTree(const std::string& folder, const std::string& name) {
  Folder parent = OpenFolder(AT_FDCWD, folder.c_str(), 0);
  std::size_t begin = 0;
  for (std::size_t slash = name.find('/'); parent && slash != std::string::npos;
       slash = name.find('/', begin)) {
    const std::string component = name.substr(begin, slash - begin);
    parent = OpenFolder(dirfd(parent.get()), component.c_str(), O_NOFOLLOW);
    begin = slash + 1;
  }
  if (!parent) return false;
  const char* const last = name.c_str() + begin;
  return unlinkat(dirfd(parent.get()), last, 0) == 0 ||
         unlinkat(dirfd(parent.get()), last, AT_REMOVEDIR) == 0;
}

}  // namespace platform
