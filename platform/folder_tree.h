#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace platform {

// Each level takes a descriptor, and the time to remove an entry grows with it.
constexpr std::size_t kDeepestFolder = 32;

// Lists what is below `folder` at any depth and begins with `prefix`, which holds no "/": the names
// are relative to the folder, so "a/b" stands for the entry b of a. A folder comes before what is
// in it; apart from that there is no order. Links are listed and not followed. What cannot be read
// is left out, and so is what is nested deeper than kDeepestFolder; false when the folder itself
// cannot be read. Any thread may call it.
bool ListTree(const std::string& folder, const std::string& prefix,
              std::vector<std::string>& names);

// Removes an entry that ListTree() gave: a file, a link itself, or an empty folder. No link inside
// of `folder` is followed, also none that has come into the place of a folder since. False when it
// is not there, or may not be or cannot be removed. Any thread may call it.
bool RemoveFromTree(const std::string& folder, const std::string& name);

}  // namespace platform
