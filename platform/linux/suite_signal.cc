#include "platform/linux/suite_signal.h"

#include <systemd/sd-bus.h>
#include <algorithm>

namespace platform {

bool MakeSuiteSignal(const std::string& name, SuiteSignal& signal) {
  const std::size_t dot = name.rfind('.');
  if (dot == std::string::npos || name.find('\0') != std::string::npos) return false;
  SuiteSignal made = {name.substr(0, dot), name.substr(dot + 1), "/" + name.substr(0, dot)};
  std::replace(made.path.begin(), made.path.end(), '.', '/');
  if (!sd_bus_interface_name_is_valid(made.interface.c_str()) ||
      !sd_bus_member_name_is_valid(made.member.c_str())) {
    return false;
  }
  signal = std::move(made);
  return true;
}

}  // namespace platform
