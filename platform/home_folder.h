#pragma once

#include <string>

namespace platform {

// Reports the home folder of the effective user, whether the folder exists or not. `path` has no
// slash at its end unless it is the root. Returns false, and leaves `path` unchanged, when the
// system does not report one. Any thread may call it while no thread changes the process's
// environment.
//
// On macOS, `path` is UTF-8. On Linux, `path` is the variable HOME if that is absolute and the
// effective user is the real one; otherwise it comes from the user database and may be relative.
// Either can have any encoding.
bool GetHomeFolder(std::string& path);

}  // namespace platform
