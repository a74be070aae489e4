#pragma once

#include <systemd/sd-bus.h>
#include <cstdint>
#include <memory>

namespace platform {

struct CloseBus {
  // Without waiting until everything is sent.
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using SessionBus = std::unique_ptr<sd_bus, CloseBus>;

// Begins to connect to the user's session bus: whether there is somebody who answers shows later,
// in sd_bus_process(). Returns zero, or a negative error number.
int OpenSessionBus(SessionBus& bus);

// Microseconds of the clock that sd-bus measures its timeouts with.
std::uint64_t BusClock();

}  // namespace platform
