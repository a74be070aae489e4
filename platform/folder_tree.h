#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace platform {

// The number of nested folders below the top that ListTree() enters. Each level needs a descriptor,
// and the time to remove an entry grows with its depth.
constexpr std::size_t kMaxFolderDepth = 32;

// Appends to `names` the entries below `folder`, at any depth, whose names begin with `prefix`.
// `prefix` must not contain a "/". Names are relative to `folder`: "a/b" is the entry b of the
// folder a. A folder precedes its entries; otherwise the order is unspecified. Links are listed but
// not followed. Omits entries that cannot be read or that are nested deeper than kMaxFolderDepth.
// Returns false when `folder` itself cannot be read. Any thread may call it.
bool ListTree(const std::string& folder, const std::string& prefix,
              std::vector<std::string>& names);

// Removes the entry `name`, which ListTree() returned: a file, a link itself, or an empty folder.
// Follows no link inside `folder`, not even one that has replaced a folder since the listing.
// Returns false when the entry does not exist or cannot be removed. Any thread may call it.
bool RemoveFromTree(const std::string& folder, const std::string& name);

}  // namespace platform
