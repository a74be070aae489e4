#pragma once

#include <string>

namespace platform {

// Represents a notification as a signal on the D-Bus session bus.
struct SuiteSignal {
  std::string interface;  // all components of the name except the last
  std::string member;     // the last component
  std::string path;       // the object path that senders use: the interface with slashes
};

// Converts a notification's name to a signal. Returns false, and leaves `signal` unchanged, when
// the bus would reject the name.
bool MakeSuiteSignal(const std::string& name, SuiteSignal& signal);

}  // namespace platform
