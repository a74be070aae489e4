#include "utils/os_utils.h"

#include <sys/utsname.h>
#include <cstdio>

#include "platform/os_version.h"
#include "utils/string_utils.h"

namespace TarnUtils {
namespace {

OSUtils::OSBitness BitnessOfMachine(const std::string& machine) {
  return machine == "i386" ? OSUtils::Bits32 : OSUtils::Bits64;
}

}  // namespace

bool OSUtils::GetCurrentOSVersion(OSVersion& version) {
  return platform::GetOSVersion(version.major, version.minor, version.patch);
}

bool OSUtils::GetCurrentOSName(const OSVersion& version, std::string& name) {
  char numbers[32];
  std::snprintf(numbers, sizeof(numbers), "%lld.%lld.%lld", version.major, version.minor,
                version.patch);
  name = std::string("Mac OS ") + numbers;
  return true;
}

bool OSUtils::GetOSVersionStringFromOSVersion(const OSVersion& version, std::string& text) {
  std::string major;
  std::string minor;
  std::string patch;
  StringUtils::LongToNativeString(version.major, major);
  StringUtils::LongToNativeString(version.minor, minor);
  StringUtils::LongToNativeString(version.patch, patch);
  text = major + "." + minor + "." + patch;
  return true;
}

bool OSUtils::GetCurrentOSBitness(OSBitness& bitness) {
  utsname names{};
  if (uname(&names) < 0) return false;  // success may be any non-negative number
  bitness = BitnessOfMachine(names.machine);
  return true;
}

}  // namespace TarnUtils
