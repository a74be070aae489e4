// Runs a program in its own root folder. The folders /Library, /Users and /Applications, where the
// suite keeps files, are missing there, and other processes do not see what the program creates:
//
//   own_root PLACE CONFIGURATION PROGRAM [ARGUMENT]...
//
// PLACE is an empty folder on which the root is mounted. CONFIGURATION is a file that becomes the
// service configuration, or "-" for no configuration. If the system does not allow another root
// folder and CONFIGURATION is "-", the program runs in the machine's root folder; as root, it then
// leaves an empty folder in /Library behind.

#include <sched.h>
#include <unistd.h>
#include <cstdio>
#include <filesystem>
#include <string>

#include "support/files.h"
#include "support/namespaces.h"

namespace {

constexpr char kFolder[] = "/Library/Application Support/Velmora/TARN/Configs";

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fputs("usage: own_root PLACE CONFIGURATION PROGRAM [ARGUMENT]...\n", stderr);
    return 2;
  }
  const std::string configuration = argv[2];
  const std::string content = ReadFile(configuration);
  if (CanUnshare(CLONE_NEWNS)) {
    if (!EnterOwnRoot(argv[1])) return 1;
    if (configuration != "-") {
      std::filesystem::create_directories(kFolder);
      WriteFile(std::string(kFolder) + "/ServiceConfig.xml", content);
    }
  } else if (configuration != "-") {
    std::fputs("own_root: this system has no root folders for single programs\n", stderr);
    return 1;
  }
  execvp(argv[3], argv + 3);
  std::perror(argv[3]);
  return 1;
}
