#include "platform/os_version.h"

#include <sys/utsname.h>
#include <cstdlib>

namespace platform {

// The kernel's release begins with the three numbers: "6.1.0-18-amd64".
bool GetOSVersion(long long& major, long long& minor, long long& patch) {
  utsname names{};
  if (uname(&names) != 0) return false;
  long long numbers[3] = {0, 0, 0};
  const char* position = names.release;
  for (int i = 0; i < 3; ++i) {
    char* end = nullptr;
    const long long number = std::strtoll(position, &end, 10);
    if (end == position || number < 0) {
      if (i == 0) return false;
      break;
    }
    numbers[i] = number;
    if (*end != '.') break;
    position = end + 1;
  }
  major = numbers[0];
  minor = numbers[1];
  patch = numbers[2];
  return true;
}

}  // namespace platform
