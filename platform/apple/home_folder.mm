#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/shared/home_path.h"

namespace platform {

// NSHomeDirectory() returns the effective user's home folder, even for a user who is not in the
// user database.
bool FindHomePath(std::string& path) {
  const AutoreleaseScope scope;
  std::string home;
  if (!FromFoundation(NSHomeDirectory(), home) || home.empty()) return false;
  path = home;
  return true;
}

}  // namespace platform
