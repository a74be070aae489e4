#include "examples/suite_host/display.h"

#include <X11/Xlib.h>

bool HasDisplay() {
  Display* display = XOpenDisplay(nullptr);
  return display && XCloseDisplay(display) == 0;
}
