#include "logging/os_utils.h"

#include "utils/os_utils.h"

namespace tarn {

bool utilGetCurrentOSVersion(int& major, int& minor, int& bugfix) {
  TarnUtils::OSUtils::OSVersion version{};
  if (TarnUtils::OSUtils::GetCurrentOSVersion(version)) {
    major = static_cast<int>(version.major);
    minor = static_cast<int>(version.minor);
    bugfix = static_cast<int>(version.patch);
  }
  return true;
}

}  // namespace tarn
