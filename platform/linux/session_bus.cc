#include "platform/linux/session_bus.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <string>

namespace platform {
namespace {

// Semicolons separate addresses. Without the variable, sd-bus looks in the user's runtime folder.
bool NamesOtherThanSockets() {
  const char* const variable = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  std::string rest = variable ? variable : "";
  while (!rest.empty()) {
    if (rest.rfind("unix:", 0) != 0) return true;
    const std::size_t end = rest.find(';');
    rest.erase(0, end == std::string::npos ? end : end + 1);
  }
  return false;
}

}  // namespace

int OpenSessionBus(SessionBus& bus) {
  if (NamesOtherThanSockets()) return -EPROTONOSUPPORT;
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

// pthread_sigmask() can fail only for an invalid operation.
BlockedSignals::BlockedSignals() {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before_);
}

BlockedSignals::~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace platform
