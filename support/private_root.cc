// Gives a test program its own root folder, before main(). Link this into programs that create log
// targets: a log target looks for the installed suite in the system's folders and creates missing
// ones, which root would leave behind. Ordinary users cannot create such folders, so they keep the
// machine's root folder.

#include <sched.h>
#include <unistd.h>

#include "support/namespaces.h"

namespace {

// Mounts the root on /mnt, which every system has and which no test needs.
[[maybe_unused]] const bool g_has_own_root =
    geteuid() == 0 && CanUnshare(CLONE_NEWNS) && EnterOwnRoot("/mnt");

}  // namespace
