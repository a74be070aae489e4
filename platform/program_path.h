#pragma once

#include <string>

namespace platform {

// The location of the running program. All paths are absolute. `folder` and `bundle` are in their
// shortest form: no empty, "." or ".." components, and no slash at the end except for the root. On
// macOS, the paths are UTF-8, and the system may leave symbolic links in them. On Linux, no
// symbolic links remain, and the paths can have any encoding.
struct ProgramPath {
  std::string executable;  // not necessarily in its shortest form
  std::string folder;      // the executable's folder
  std::string bundle;      // the bundle around the executable; the same as `folder` without one
};

// Fills in `path`. A program that is replaced or deleted while it runs keeps its path; a program
// that is moved may be reported at its old or its new path. Returns false, and leaves `path`
// unchanged, when the system does not report the paths. Any thread may call it.
bool GetProgramPath(ProgramPath& path);

}  // namespace platform
