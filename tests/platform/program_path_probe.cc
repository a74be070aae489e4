// Prints its executable, its folder and its bundle, one path a line. Before that, an argument may
// change the program's own file:
//   delete      deletes it
//   replace     replaces it with another file
//   move PATH   moves it

#include <unistd.h>
#include <cstdio>
#include <string>

#include "platform/program_path.h"
#include "support/files.h"

int main(int argc, char** argv) {
  const std::string program = argv[0];
  const std::string action = argc > 1 ? argv[1] : "";
  if ((action == "delete" || action == "replace") && unlink(argv[0]) != 0) return 1;
  if (action == "replace") WriteFile(program, "another one");
  if (action == "move" && rename(argv[0], argv[2]) != 0) return 1;

  platform::ProgramPath path;
  const bool known = platform::GetProgramPath(path);
  std::printf("%s\n%s\n%s\n", path.executable.c_str(), path.folder.c_str(), path.bundle.c_str());
  return known ? 0 : 2;
}
