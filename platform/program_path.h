#pragma once

#include <string>

namespace platform {

// Where the running program is: its executable, and the bundle that it is the executable of, which
// for a program outside of any bundle is the executable's folder. Both are absolute and in the
// shortest form: no empty, "." or ".." components, no slash at the end but that of the root, and
// symbolic links resolved as far as the system does so itself.
//
// A program that is replaced or deleted while it runs keeps the path that it had; one that is moved
// may be told at either place. False, with both as they were, when the system does not tell. Any
// thread may call it.
bool GetProgramPath(std::string& executable, std::string& bundle);

}  // namespace platform
