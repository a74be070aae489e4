#pragma once

#include "include/cef_browser.h"

class CefRequestHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_termination_status_t TerminationStatus;

  // Called when a render process ends unexpectedly.
  virtual void OnRenderProcessTerminated(CefRefPtr<CefBrowser> /*browser*/,
                                         TerminationStatus /*status*/) {}
};
