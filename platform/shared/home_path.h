#pragma once

#include <string>

namespace platform {

// The home folder of the effective user as the system names it, whether it exists or not. False,
// with `path` as it was, when the system knows none. Each system has a body of its own, in its
// home_folder.
bool FindHomePath(std::string& path);

}  // namespace platform
