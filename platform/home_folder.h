#pragma once

#include <string>

namespace platform {

// The home folder of the user whose identity the process has at the moment (the effective user),
// as UTF-8 without a slash at the end but that of the root, whether the folder exists or not.
// False, with `path` as it was, when the system knows none. Any thread may call it.
bool GetHomeFolder(std::string& path);

}  // namespace platform
