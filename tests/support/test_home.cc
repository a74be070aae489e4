#include "tests/support/test_home.h"

#include <cstdlib>

#include "tests/support/addresses.h"

namespace {

void Set(const char* name, const char* value) {
  if (value) {
    setenv(name, value, 1);
  } else {
    unsetenv(name);
  }
}

}  // namespace

ScopedVariable::ScopedVariable(const char* name, const char* value) : name_(name) {
  if (const char* const former = std::getenv(name)) {
    was_set_ = true;
    former_ = former;
  }
  Set(name, value);
}

ScopedVariable::~ScopedVariable() { Set(name_, was_set_ ? former_.c_str() : nullptr); }

TestHome::TestHome()
    : variable_("HOME", folder_.path().c_str()),
      bus_("DBUS_SESSION_BUS_ADDRESS", BusAddress(folder_.path() + "/no-bus").c_str()) {}
