#pragma once

namespace platform {

// The version of the running system as its three numbers; a number that it does not have is 0.
// False, with all three as they were, when the system does not tell. Any thread may call it.
bool GetOSVersion(long long& major, long long& minor, long long& patch);

}  // namespace platform
