#pragma once

namespace platform {

// Reports the three numbers of the running system's version; a missing number is 0. Returns false,
// and leaves all three unchanged, when the system does not report its version. Any thread may call
// it.
bool GetOSVersion(long long& major, long long& minor, long long& patch);

}  // namespace platform
