#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace platform {

// The number of nested folders below the top that ListTree() enters. Each level needs a descriptor,
// and the time to remove an entry grows with its depth.
constexpr std::size_t kMaxFolderDepth = 32;

// Appends to `names` the entries of `folder` whose names begin with `prefix`, and all entries below
// them. `prefix` must not contain a "/"; it applies to the direct entries of `folder` only, and
// folders that do not match are not entered. Names are relative to `folder`: "a/b" is the entry b
// of the folder a. A folder precedes its entries; otherwise the order is unspecified. Links below
// `folder` are listed but not followed.
//
// Returns false, and leaves `names` unchanged, when `folder` cannot be opened. Returns true after
// any other error: an inner folder that cannot be opened, or is nested too deep, is listed without
// its entries, and a read error counts as the end of its folder. Any thread may call it.
bool ListTree(const std::string& folder, const std::string& prefix,
              std::vector<std::string>& names);

// Removes the entry `name`, which ListTree() returned: a file, a link itself, or an empty folder.
// Follows no link inside `folder`, not even one that has replaced a folder since the listing.
// Returns false when the entry does not exist or cannot be removed. Any thread may call it.
bool RemoveFromTree(const std::string& folder, const std::string& name);

}  // namespace platform
