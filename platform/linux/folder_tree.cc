#include "platform/folder_tree.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstring>
#include <memory>

namespace platform {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }  // fails only for what is none
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

// Null when it cannot be read.
Folder OpenFolder(int parent, const char* name, int more_flags) {
  const int descriptor = openat(parent, name, kFolderFlags | more_flags);
  if (descriptor == -1) return nullptr;
  DIR* const folder = fdopendir(descriptor);
  if (!folder) close(descriptor);
  return Folder(folder);
}

bool IsFolder(const Folder& parent, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
  struct stat attributes {};
  return fstatat(dirfd(parent.get()), entry.d_name, &attributes, AT_SYMLINK_NOFOLLOW) == 0 &&
         S_ISDIR(attributes.st_mode);
}

bool BeginsWith(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

// A folder that is being read, and what its entries' names begin with.
struct Level {
  Folder folder;
  std::string path;
};

}  // namespace

bool ListTree(const std::string& folder, const std::string& prefix,
              std::vector<std::string>& names) {
  std::vector<Level> levels;
  levels.push_back({OpenFolder(AT_FDCWD, folder.c_str(), 0), ""});
  if (!levels.back().folder) return false;
  while (!levels.empty()) {
    const Level& level = levels.back();
    const dirent* const entry = readdir(level.folder.get());  // an error counts as the end
    if (!entry) {
      levels.pop_back();
      continue;
    }
    if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0) continue;
    const std::string name = level.path + entry->d_name;
    if (!BeginsWith(name, prefix)) continue;
    names.push_back(name);
    if (levels.size() > kDeepestFolder || !IsFolder(level.folder, *entry)) continue;
    Folder inner = OpenFolder(dirfd(level.folder.get()), entry->d_name, O_NOFOLLOW);
    if (inner) levels.push_back({std::move(inner), name + "/"});
  }
  return true;
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
