#include "tests/gnustep/gestalt_version.h"

#include "platform/apple/gestalt_version.h"

GestaltAnswers g_gestalt_answers;

namespace platform {

bool GetGestaltVersion(long long& major, long long& minor, long long& patch) {
  if (!g_gestalt_answers.available) return false;
  major = g_gestalt_answers.major;
  minor = g_gestalt_answers.minor;
  patch = g_gestalt_answers.patch;
  return true;
}

}  // namespace platform
