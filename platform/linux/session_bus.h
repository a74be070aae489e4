#pragma once

#include <systemd/sd-bus.h>
#include <csignal>
#include <cstdint>
#include <memory>

namespace platform {

struct CloseBus {
  // Does not wait until everything is sent.
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using SessionBus = std::unique_ptr<sd_bus, CloseBus>;

// Starts to connect to the user's session bus; sd_bus_process() later shows whether the bus
// answers. Refuses buses other than sockets of this machine, because looking up their address or
// closing them can take long. Returns zero; after an error, returns a negative
// errno value and leaves `bus` unchanged.
int OpenSessionBus(SessionBus& bus);

// Blocks all signals of the calling thread for the object's lifetime. Threads that it starts in
// that time inherit the blocked signals and keep them. The destructor restores the former mask and
// must run on the same thread.
class BlockedSignals {
 public:
  BlockedSignals();
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;
  ~BlockedSignals();

 private:
  sigset_t before_{};
};

// Returns the time, in microseconds, of the monotonic clock, which sd-bus uses for its timeouts.
std::uint64_t BusClock();

}  // namespace platform
