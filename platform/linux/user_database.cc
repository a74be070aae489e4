#include "platform/linux/user_database.h"

#include <pwd.h>
#include <cerrno>
#include <vector>

namespace platform {

bool FindUser(uid_t user, UserEntry& entry) {
  std::vector<char> strings(1024);
  passwd record{};
  passwd* found = nullptr;
  while (getpwuid_r(user, &record, strings.data(), strings.size(), &found) == ERANGE) {
    strings.resize(strings.size() * 2);
  }
  if (!found) return false;
  entry.home = found->pw_dir ? found->pw_dir : "";
  entry.group = found->pw_gid;
  return true;
}

}  // namespace platform
