#pragma once

#include <string>

namespace platform {

// The location of the running program. All paths are absolute. `folder` and `bundle` are in their
// shortest form: no empty, "." or ".." components, no slash at the end except for the root, and
// symbolic links resolved as far as the system itself resolves them.
struct ProgramPath {
  std::string executable;  // as the system reports it, in whatever form
  std::string folder;      // the executable's folder
  std::string bundle;      // the bundle around the executable; the same as `folder` without one
};

// Fills in `path`. A program that is replaced or deleted while it runs keeps its path; a program
// that is moved may be reported at either path. Returns false, and leaves `path` unchanged, when
// the system does not report the paths. Any thread may call it.
bool GetProgramPath(ProgramPath& path);

}  // namespace platform
