#pragma once

#include <string>

namespace platform {

// Reports the home folder of the effective user as the system names it, whether it exists or not.
// Returns false, and leaves `path` unchanged, when the system does not report one. Each system
// implements it in its home_folder file.
bool FindHomePath(std::string& path);

}  // namespace platform
