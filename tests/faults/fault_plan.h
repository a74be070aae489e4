#pragma once

#include <cstdint>

// Decides which calls of the hooks in this folder fail. The environment variable FAULT selects the
// call as FAMILY:NUMBER:ERRNO:MODE, for example write:3:ENOSPC:once. MODE is "once", or "on" for
// the call and all later calls of its family. The error SHORT halves the size of a read, write or
// copy. The file named by FAULT_REPORT, which programs.py creates with the right size, receives the
// numbers of calls. They are readable even if the process crashes.
//
// Calls of all threads count from the start of main() to the end of the process. Calls of forked
// children and of other programs do not count.

// The enumerator and the name of each family of calls. programs.py has the same order.
#define FAULT_FAMILIES(X)           \
  X(kOpen, "open")                  \
  X(kRead, "read")                  \
  X(kWrite, "write")                \
  X(kStat, "stat")                  \
  X(kRename, "rename")              \
  X(kLink, "link")                  \
  X(kUnlink, "unlink")              \
  X(kClose, "close")                \
  X(kCopy, "copy")                  \
  X(kTruncate, "truncate")          \
  X(kSync, "sync")                  \
  X(kMode, "mode")                  \
  X(kSemaphore, "semaphore")        \
  X(kSemaphoreSet, "semaphore-set") \
  X(kShared, "shared")              \
  X(kAllocation, "allocation")      \
  X(kMap, "map")                    \
  X(kTime, "time")                  \
  X(kDirectory, "directory")        \
  X(kThread, "thread")              \
  X(kSocket, "socket")

namespace faults {

#define FAULT_ENUMERATOR(family, name) family,
enum class Family { FAULT_FAMILIES(FAULT_ENUMERATOR) };
#undef FAULT_ENUMERATOR

enum class Outcome { kPass, kFail, kShort };

// Counts a call and decides its outcome. Sets errno for kFail.
Outcome Decide(Family family);

inline bool Fails(Family family) { return Decide(family) == Outcome::kFail; }

// Excludes the calls of this thread during its lifetime.
class Pause {
 public:
  Pause();
  Pause(const Pause&) = delete;
  Pause& operator=(const Pause&) = delete;
  ~Pause();
};

// Returns the function that a hook replaces.
void* RealFunction(const char* name);

}  // namespace faults

// Defines a hook that returns `failure` when the call fails. `exceptions` is noexcept if the
// system's header declares the function so.
#define FAULT_HOOK(family, type, failure, name, parameters, arguments, exceptions)            \
  type name parameters exceptions {                                                           \
    static auto* const real = reinterpret_cast<decltype(&name)>(faults::RealFunction(#name)); \
    return faults::Fails(faults::Family::family) ? failure : real arguments;                  \
  }
