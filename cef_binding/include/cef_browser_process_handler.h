#pragma once

#include "include/cef_command_line.h"

// Callbacks on the main thread of the browser process. The application implements them.
class CefBrowserProcessHandler : public virtual CefBaseRefCounted {
 public:
  virtual void OnContextInitialized() {}
};
