#pragma once

#include <sys/types.h>

namespace platform {

// Who sits at this machine: the user logged in at its own screen, with that user's primary group.
// False, with both as they were, when nobody does or the system does not keep track of it. Any
// thread may call it.
bool GetConsoleUser(uid_t& user, gid_t& group);

}  // namespace platform
