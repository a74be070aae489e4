#pragma once

#include <sys/types.h>
#include <string>

namespace platform {

// What the user database says of one user.
struct UserEntry {
  std::string home;  // empty when there is none
  gid_t group;       // the primary one
};

// False, with `entry` as it was, when there is no such user or the database cannot be read.
bool FindUser(uid_t user, UserEntry& entry);

}  // namespace platform
