#include "platform/shared/folder_walk.h"

#include <cstring>
#include <utility>

#include "platform/begins_with.h"
#include "platform/folder_tree.h"

namespace platform {
namespace {

// A folder that is being read, and the prefix of its entries' names.
struct Level {
  Folder folder;
  std::string path;
};

}  // namespace

bool WalkFolders(Folder root, const std::string& prefix, const OpenEntry& open_entry,
                 std::vector<std::string>& names) {
  if (!root) return false;
  std::vector<Level> levels;
  levels.push_back({std::move(root), ""});
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
    if (levels.size() > kMaxFolderDepth) continue;
    Folder inner = open_entry(level.folder.get(), *entry, name);
    if (inner) levels.push_back({std::move(inner), name + "/"});
  }
  return true;
}

}  // namespace platform
