#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/shared/home_path.h"

namespace platform {

// The function answers for the effective user, whether the user database has that user or not.
bool FindHomePath(std::string& path) {
  const AutoreleaseScope scope;
  std::string home;
  if (!FromFoundation(NSHomeDirectory(), home) || home.empty()) return false;
  path = home;
  return true;
}

}  // namespace platform
