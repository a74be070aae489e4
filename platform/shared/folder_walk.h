#pragma once

#include <dirent.h>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }  // fails only for what is none
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

// Opens an entry when it is a folder, and no link to one: `entry` is of `parent`, and `name` is
// relative to where the walk began. Null otherwise.
using OpenEntry = std::function<Folder(DIR* parent, const dirent& entry, const std::string& name)>;

// The walk of ListTree(), from the open folder `root` on; false when that is null.
bool WalkFolders(Folder root, const std::string& prefix, const OpenEntry& open_entry,
                 std::vector<std::string>& names);

}  // namespace platform
