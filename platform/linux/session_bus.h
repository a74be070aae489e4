#pragma once

#include <systemd/sd-bus.h>
#include <csignal>
#include <cstdint>
#include <memory>

namespace platform {

struct CloseBus {
  // Without waiting until everything is sent.
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using SessionBus = std::unique_ptr<sd_bus, CloseBus>;

// Begins to connect to the user's session bus: whether there is somebody who answers shows later,
// in sd_bus_process(). Buses that are not sockets of this machine are refused: to find their
// address, or to end them, can take long. Returns zero, or a negative error number.
int OpenSessionBus(SessionBus& bus);

// Blocks all signals of this thread, and of those that it starts, for as long as the object lives.
class BlockedSignals {
 public:
  BlockedSignals();
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;
  ~BlockedSignals();

 private:
  sigset_t before_{};
};

// Microseconds of the clock that sd-bus measures its timeouts with.
std::uint64_t BusClock();

}  // namespace platform
