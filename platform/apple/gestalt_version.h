#pragma once

namespace platform {

// The system's version from its configuration service, for systems before 10.10. False, with all
// three as they were, when one of them is not told.
bool GetGestaltVersion(long long& major, long long& minor, long long& patch);

}  // namespace platform
