#pragma once

namespace platform {

// Reports the system's version from Gestalt(), for systems before 10.10. Returns false, and leaves
// all three unchanged, when one of the numbers is not available.
bool GetGestaltVersion(long long& major, long long& minor, long long& patch);

}  // namespace platform
