#pragma once

#include "include/cef_v8.h"

// Callbacks on the main thread of a render process. The application implements them.
class CefRenderProcessHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_navigation_type_t NavigationType;

  virtual void OnWebKitInitialized() {}
  // Returns true to cancel the navigation.
  virtual bool OnBeforeNavigation(CefRefPtr<CefBrowser> /*browser*/, CefRefPtr<CefFrame> /*frame*/,
                                  CefRefPtr<CefRequest> /*request*/,
                                  NavigationType /*navigation_type*/, bool /*is_redirect*/) {
    return false;
  }
  virtual void OnContextReleased(CefRefPtr<CefBrowser> /*browser*/, CefRefPtr<CefFrame> /*frame*/,
                                 CefRefPtr<CefV8Context> /*context*/) {}
  // Returns true when the message was handled.
  virtual bool OnProcessMessageReceived(CefRefPtr<CefBrowser> /*browser*/,
                                        CefProcessId /*source_process*/,
                                        CefRefPtr<CefProcessMessage> /*message*/) {
    return false;
  }
};
