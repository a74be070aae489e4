#pragma once

#include <memory>
#include <string>

class ChildProcess;

// Runs an X server without a screen, on a free display number. The destructor ends the server.
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
