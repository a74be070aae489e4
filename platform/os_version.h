#pragma once

namespace platform {

// Reports the three numbers of the running system's version; a missing number is 0. Returns false,
// and leaves all three unchanged, when the system does not report its version. Any thread may call
// it. On Linux, the version is that of the kernel. On macOS, all three are 0, and the result is
// true, when the system has no object for the process's information.
bool GetOSVersion(long long& major, long long& minor, long long& patch);

}  // namespace platform
