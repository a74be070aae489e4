#include "platform/apple/gestalt_version.h"

#include <CoreServices/CoreServices.h>

namespace platform {

bool GetGestaltVersion(long long& major, long long& minor, long long& patch) {
  SInt32 numbers[3] = {0, 0, 0};
  if (Gestalt(gestaltSystemVersionMajor, &numbers[0]) != noErr ||
      Gestalt(gestaltSystemVersionMinor, &numbers[1]) != noErr ||
      Gestalt(gestaltSystemVersionBugFix, &numbers[2]) != noErr) {
    return false;
  }
  major = numbers[0];
  minor = numbers[1];
  patch = numbers[2];
  return true;
}

}  // namespace platform
