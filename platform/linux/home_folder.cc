#include "platform/home_folder.h"

#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>

#include "platform/linux/user_database.h"

namespace platform {

bool GetHomeFolder(std::string& path) {
  UserEntry user{};
  // The variable belongs to the user who started the process, not to a borrowed identity.
  const char* const variable = geteuid() == getuid() ? std::getenv("HOME") : nullptr;
  if (variable && *variable == '/') {
    user.home = variable;
  } else if (!FindUser(geteuid(), user) || user.home.empty()) {
    return false;
  }
  path = user.home;
  while (path.size() > 1 && path.back() == '/')
    path.pop_back();
  // As a rule it exists already. Where it cannot be made, the first use of it fails.
  mkdir(path.c_str(), 0700);
  return true;
}

}  // namespace platform
