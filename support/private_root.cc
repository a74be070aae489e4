// Linked into a test program that makes log targets: each of them looks for the installed suite in
// the system's folders, and what is missing of those is created. Where this process may have a root
// folder of its own, it gets one before it does anything, so that root leaves nothing behind.
// Others cannot create such folders.

#include <sched.h>
#include <unistd.h>

#include "support/namespaces.h"

namespace {

// A folder that every system has, and that nothing else here needs.
[[maybe_unused]] const bool g_has_own_root =
    geteuid() == 0 && CanUnshare(CLONE_NEWNS) && EnterOwnRoot("/mnt");

}  // namespace
