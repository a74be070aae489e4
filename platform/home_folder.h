#pragma once

#include <string>

namespace platform {

// Reports the home folder of the effective user, whether the folder exists or not. `path` is UTF-8,
// without a slash at its end unless it is the root. Returns false, and leaves `path` unchanged,
// when the system does not report one. Any thread may call it.
bool GetHomeFolder(std::string& path);

}  // namespace platform
