#include <unistd.h>

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/shared/home_path.h"
#include "platform/shared/user_database.h"

namespace platform {

bool FindHomePath(std::string& path) {
  // The top-level folder of the user domain, for the effective user, too. For a user who is not in
  // the database Foundation names some other one.
  UserEntry user{};
  if (!FindUser(geteuid(), user)) return false;
  const AutoreleaseScope scope;
  std::string home;
  if (!FromFoundation(NSHomeDirectory(), home) || home.empty()) return false;
  path = home;
  return true;
}

}  // namespace platform
