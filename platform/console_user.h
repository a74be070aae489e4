#pragma once

#include <sys/types.h>

namespace platform {

// Reports the console user, who is logged in at the machine's own screen, and that user's primary
// group. Returns false, and leaves both unchanged, when there is no such user or the system does
// not report the user and the group. Any thread may call it.
bool GetConsoleUser(uid_t& user, gid_t& group);

}  // namespace platform
