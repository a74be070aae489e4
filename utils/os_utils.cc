#include "utils/os_utils.h"

#include "platform/os_version.h"

namespace TarnUtils {

bool OSUtils::GetCurrentOSVersion(OSVersion& version) {
  return platform::GetOSVersion(version.major, version.minor, version.patch);
}

}  // namespace TarnUtils
