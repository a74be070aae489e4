#include <unistd.h>
#include <cstdlib>

#include "platform/linux/user_database.h"
#include "platform/shared/home_path.h"

namespace platform {

bool FindHomePath(std::string& path) {
  UserEntry user{};
  // HOME belongs to the user who started the process, not to a borrowed identity.
  const char* const variable = geteuid() == getuid() ? std::getenv("HOME") : nullptr;
  if (variable && *variable == '/') {
    user.home = variable;
  } else if (!FindUser(geteuid(), user) || user.home.empty()) {
    return false;
  }
  path = user.home;
  return true;
}

}  // namespace platform
