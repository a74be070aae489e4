#include "platform/linux/session_bus.h"

#include <ctime>

namespace platform {

int OpenSessionBus(SessionBus& bus) {
  sd_bus* opened = nullptr;
  const int result = sd_bus_open_user(&opened);
  if (result < 0) return result;
  bus.reset(opened);
  return 0;
}

std::uint64_t BusClock() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);  // cannot fail for this clock
  return static_cast<std::uint64_t>(now.tv_sec) * 1000000 +
         static_cast<std::uint64_t>(now.tv_nsec) / 1000;
}

}  // namespace platform
