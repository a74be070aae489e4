#pragma once

#include <string>

namespace platform {

// A notification as a signal on the D-Bus session bus.
struct SuiteSignal {
  std::string interface;  // all components of the name but the last
  std::string member;     // the last
  std::string path;       // of the object that senders name: the interface with slashes
};

// False when the bus would not accept the name.
bool MakeSuiteSignal(const std::string& name, SuiteSignal& signal);

}  // namespace platform
