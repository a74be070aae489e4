#pragma once

#include <dirent.h>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }  // fails only for an invalid stream
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

// Opens the entry `entry` of `parent` when it is a folder and not a link to one. Returns null for
// other entries and after an error. `name` is relative to the top of the walk.
using OpenEntry = std::function<Folder(DIR* parent, const dirent& entry, const std::string& name)>;

// Does what ListTree() does for the open folder `root`; opens inner folders with `open_entry`.
// Returns false only when `root` is null.
bool WalkFolders(Folder root, const std::string& prefix, const OpenEntry& open_entry,
                 std::vector<std::string>& names);

}  // namespace platform
