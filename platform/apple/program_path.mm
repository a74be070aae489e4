#include "platform/program_path.h"

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"

namespace platform {

bool GetProgramPath(ProgramPath& path) {
  const AutoreleaseScope scope;
  NSBundle* const main = [NSBundle mainBundle];
  NSString* const executable = [main executablePath];
  NSString* const folder = [executable stringByDeletingLastPathComponent];
  ProgramPath found;
  if (!FromFoundation(executable, found.executable) ||
      !FromFoundation([folder stringByStandardizingPath], found.folder) ||
      !FromFoundation([[main bundlePath] stringByStandardizingPath], found.bundle) ||
      found.executable.rfind('/', 0) != 0 || found.bundle.rfind('/', 0) != 0) {
    return false;
  }
  path = found;
  return true;
}

}  // namespace platform
