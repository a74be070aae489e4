// Systems older than 10.10 have no openat(), so entries are reached by their paths. Each component
// is looked at before it is used.

#include "platform/folder_tree.h"

#include <dirent.h>
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
  levels.push_back({Folder(opendir(folder.c_str())), ""});
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
    const std::string path = PathOf(folder, name);
    if (levels.size() > kDeepestFolder || !IsFolder(path)) continue;
    Folder inner(opendir(path.c_str()));
    if (inner) levels.push_back({std::move(inner), name + "/"});
  }
  return true;
}

bool RemoveFromTree(const std::string& folder, const std::string& name) {
  for (std::size_t slash = name.find('/'); slash != std::string::npos;
       slash = name.find('/', slash + 1)) {
    if (!IsFolder(PathOf(folder, name.substr(0, slash)))) return false;
  }
  const std::string path = PathOf(folder, name);
  // The right call at once: for root, unlink() may take a folder away with what is in it.
  return IsFolder(path) ? rmdir(path.c_str()) == 0 : unlink(path.c_str()) == 0;
}

}  // namespace platform
