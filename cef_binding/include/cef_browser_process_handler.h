#pragma once

#include "include/cef_command_line.h"

// Implemented by us; called on the browser process's main thread.
class CefBrowserProcessHandler : public virtual CefBaseRefCounted {
 public:
  virtual void OnContextInitialized() {}
};
