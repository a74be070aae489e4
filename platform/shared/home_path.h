#pragma once

#include <string>

namespace platform {

// Does what GetHomeFolder() does, but keeps slashes at the end of `path`. Each system implements it
// in its home_folder file.
bool FindHomePath(std::string& path);

}  // namespace platform
