#pragma once

#include <memory>
#include <string>

class ChildProcess;

// Runs an X server with a screen in memory, on a free display number. Does not set DISPLAY. Aborts
// when the server does not start. The destructor ends the server.
class VirtualDisplay {
 public:
  VirtualDisplay();
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;
  ~VirtualDisplay();

  // Returns the value for the environment variable DISPLAY.
  const std::string& name() const { return name_; }

 private:
  std::unique_ptr<ChildProcess> server_;
  std::string name_;
};
