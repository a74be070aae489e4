#pragma once

namespace tarn {

// Sets the three numbers of the running system's version. Always returns true; the numbers do not
// change if the system does not report them. Any thread may call it.
bool utilGetCurrentOSVersion(int& major, int& minor, int& bugfix);

}  // namespace tarn
