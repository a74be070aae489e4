#pragma once

#include <sys/types.h>

namespace platform {

// Reports the user who is logged in at the machine's own screen, and that user's primary group.
// Returns false, and leaves both unchanged, when nobody is logged in there or the system does not
// track console users. Any thread may call it.
bool GetConsoleUser(uid_t& user, gid_t& group);

}  // namespace platform
