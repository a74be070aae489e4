#include "platform/effective_user.h"

#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace platform {

// Makes no call where nothing changes, so nothing can fail.
EffectiveUser::EffectiveUser(uid_t user)
    : former_(geteuid()), borrowed_(user == former_ || seteuid(user) == 0) {}

EffectiveUser::~EffectiveUser() {
  if (geteuid() == former_ || seteuid(former_) == 0) return;
  std::fprintf(stderr, "cannot return to user %lu: %s\n", static_cast<unsigned long>(former_),
               std::strerror(errno));
  std::abort();
}

}  // namespace platform
