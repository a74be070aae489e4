#include "platform/console_user.h"

#include <SystemConfiguration/SystemConfiguration.h>

namespace platform {

bool GetConsoleUser(uid_t& user, gid_t& group) {
  uid_t console_user = 0;
  gid_t console_group = 0;
  const CFStringRef name = SCDynamicStoreCopyConsoleUser(nullptr, &console_user, &console_group);
  if (!name) return false;
  CFRelease(name);
  user = console_user;
  group = console_group;
  return true;
}

}  // namespace platform
