#pragma once

#include "include/cef_browser.h"

class CefRequestHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_termination_status_t TerminationStatus;

  // A render process ended without being asked.
  virtual void OnRenderProcessTerminated(CefRefPtr<CefBrowser> /*browser*/,
                                         TerminationStatus /*status*/) {}
};
