#include "platform/program_path.h"

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"

namespace platform {

bool GetProgramPath(std::string& executable, std::string& bundle) {
  const AutoreleaseScope scope;
  NSBundle* const main = [NSBundle mainBundle];
  std::string program;
  std::string folder;
  if (!FromFoundation([[main executablePath] stringByStandardizingPath], program) ||
      !FromFoundation([[main bundlePath] stringByStandardizingPath], folder) ||
      program.rfind('/', 0) != 0 || folder.rfind('/', 0) != 0) {
    return false;
  }
  executable = program;
  bundle = folder;
  return true;
}

}  // namespace platform
