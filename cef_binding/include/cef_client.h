#pragma once

#include "include/cef_browser.h"
#include "include/cef_display_handler.h"
#include "include/cef_life_span_handler.h"
#include "include/cef_load_handler.h"
#include "include/cef_render_handler.h"
#include "include/cef_request_handler.h"

// The interface through which a browser reports to its application, which implements it. Methods
// are called on the main thread unless their comments name another one.
class CefClient : public virtual CefBaseRefCounted {
 public:
  virtual CefRefPtr<CefDisplayHandler> GetDisplayHandler() { return nullptr; }
  virtual CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() { return nullptr; }
  virtual CefRefPtr<CefLoadHandler> GetLoadHandler() { return nullptr; }
  virtual CefRefPtr<CefRenderHandler> GetRenderHandler() { return nullptr; }
  virtual CefRefPtr<CefRequestHandler> GetRequestHandler() { return nullptr; }
  // Returns true when the message was handled.
  virtual bool OnProcessMessageReceived(CefRefPtr<CefBrowser> /*browser*/,
                                        CefProcessId /*source_process*/,
                                        CefRefPtr<CefProcessMessage> /*message*/) {
    return false;
  }
};
