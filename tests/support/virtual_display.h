#pragma once

#include <memory>
#include <string>

class ChildProcess;

// An X server without a screen, on a display number that was free. It ends with this object.
class VirtualDisplay {
 public:
  VirtualDisplay();
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;
  ~VirtualDisplay();

  // For the environment variable DISPLAY.
  const std::string& name() const { return name_; }

 private:
  std::unique_ptr<ChildProcess> server_;
  std::string name_;
};
