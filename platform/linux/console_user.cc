#include "platform/console_user.h"

#include <systemd/sd-login.h>

#include "platform/linux/user_database.h"

namespace platform {

bool GetConsoleUser(uid_t& user, gid_t& group) {
  uid_t active = 0;
  // Also fails without logind.
  if (sd_seat_get_active("seat0", nullptr, &active) < 0) return false;
  UserEntry entry{};
  if (!FindUser(active, entry)) return false;
  user = active;
  group = entry.group;
  return true;
}

}  // namespace platform
