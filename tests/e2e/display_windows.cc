#include "tests/e2e/display_windows.h"

#include <X11/Xlib.h>
#include <memory>

int CountWindows(const std::string& display, int width, int height) {
  const std::unique_ptr<Display, int (*)(Display*)> connection(XOpenDisplay(display.c_str()),
                                                               XCloseDisplay);
  if (!connection) return -1;
  // A window can close between two requests.
  XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
  Window root = 0;
  Window parent = 0;
  Window* windows = nullptr;
  unsigned int size = 0;
  if (!XQueryTree(connection.get(), DefaultRootWindow(connection.get()), &root, &parent, &windows,
                  &size)) {
    return -1;
  }
  int count = 0;
  for (unsigned int i = 0; i < size; ++i) {
    XWindowAttributes attributes;
    if (XGetWindowAttributes(connection.get(), windows[i], &attributes) &&
        attributes.width == width && attributes.height == height &&
        attributes.map_state == IsViewable) {
      ++count;
    }
  }
  XFree(windows);
  return count;
}
