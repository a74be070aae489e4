#include "platform/linux/session_bus.h"
#include "platform/linux/suite_signal.h"
#include "platform/notifications.h"

namespace platform {
namespace {

constexpr std::uint64_t kTimeout = 1000000;  // microseconds

// Waits until the bus has accepted the connection. Returns false at the deadline or after an error.
bool WaitUntilReady(sd_bus* bus, std::uint64_t deadline) {
  while (sd_bus_is_ready(bus) == 0) {
    const int processed = sd_bus_process(bus, nullptr);
    if (processed < 0) return false;
    if (processed > 0) continue;
    const std::uint64_t now = BusClock();
    if (now >= deadline || sd_bus_wait(bus, deadline - now) < 0) return false;
  }
  return sd_bus_is_ready(bus) > 0;
}

// Calls the bus and waits for its answer, which means that the bus has received everything sent
// before.
bool Ping(sd_bus* bus, std::uint64_t deadline) {
  const std::uint64_t now = BusClock();
  if (now >= deadline) return false;
  sd_bus_message* call = nullptr;
  if (sd_bus_message_new_method_call(bus, &call, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                     "org.freedesktop.DBus.Peer", "Ping") < 0) {
    return false;
  }
  const bool answered = sd_bus_call(bus, call, deadline - now, nullptr, nullptr) >= 0;
  sd_bus_message_unref(call);
  return answered;
}

}  // namespace

bool PostNotification(const std::string& name) {
  const BlockedSignals blocked;  // sd-bus fails calls that a signal interrupts
  const std::uint64_t deadline = BusClock() + kTimeout;
  SuiteSignal signal;
  SessionBus bus;
  return MakeSuiteSignal(name, signal) && OpenSessionBus(bus) >= 0 &&
         WaitUntilReady(bus.get(), deadline) &&
         sd_bus_emit_signal(bus.get(), signal.path.c_str(), signal.interface.c_str(),
                            signal.member.c_str(), "") >= 0 &&
         Ping(bus.get(), deadline);
}

}  // namespace platform
