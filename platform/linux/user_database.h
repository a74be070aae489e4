#pragma once

#include <sys/types.h>
#include <string>

namespace platform {

// The user database's entry of one user.
struct UserEntry {
  std::string home;  // empty when the entry has none
  gid_t group;       // the primary group
};

// Reports the entry of `user`. Returns false, and leaves `entry` unchanged, when the user does not
// exist or the database cannot be read. Any thread may call it.
bool FindUser(uid_t user, UserEntry& entry);

}  // namespace platform
