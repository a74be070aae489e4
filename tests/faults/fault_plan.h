#pragma once

#include <cstdint>

// Decides which calls of the hooks in this folder fail. The environment variable FAULT names the
// call, as FAMILY:NUMBER:ERRNO:MODE, for example write:3:ENOSPC:once. MODE is "once", or "on" for
// the call and all later ones of its family. The error SHORT cuts a read, write or copy to half.
// The file in FAULT_REPORT, which programs.py creates in the right size, receives the numbers of
// calls. They stay readable however the process ends.
//
// Calls of all threads count from the start of main() to the end of the process. Calls of a forked
// child and of other programs that the process starts do not count.
namespace faults {

// In the order of FAMILIES in programs.py.
enum class Family {
  kOpen,
  kRead,
  kWrite,
  kStat,
  kRename,
  kLink,
  kUnlink,
  kClose,
  kCopy,
  kTruncate,
  kSync,
  kMode,
  kSemaphore,
  kSemaphoreSet,
  kShared,
  kAllocation,
  kMap,
  kTime,
  kDirectory,
  kThread,
  kSocket,
};
constexpr int kFamilies = static_cast<int>(Family::kSocket) + 1;

enum class Outcome { kPass, kFail, kShort };

// Counts a call. Sets errno when the call is to fail.
Outcome Decide(Family family);

inline bool Fails(Family family) { return Decide(family) == Outcome::kFail; }

// Excludes the calls of this thread for as long as the object lives.
class Pause {
 public:
  Pause();
  Pause(const Pause&) = delete;
  Pause& operator=(const Pause&) = delete;
  ~Pause();
};

// The function that a hook stands in for.
void* RealFunction(const char* name);

}  // namespace faults

// Defines a hook that fails with `failure`. `exceptions` is noexcept where
// the system's header has it.
#define FAULT_HOOK(family, type, failure, name, parameters, arguments, exceptions)            \
  type name parameters exceptions {                                                           \
    static auto* const real = reinterpret_cast<decltype(&name)>(faults::RealFunction(#name)); \
    return faults::Fails(faults::Family::family) ? failure : real arguments;                  \
  }
