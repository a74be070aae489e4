#pragma once

#include "include/cef_browser.h"
#include "include/cef_display_handler.h"
#include "include/cef_life_span_handler.h"
#include "include/cef_load_handler.h"
#include "include/cef_render_handler.h"
#include "include/cef_request_handler.h"

// What a browser process gives to each browser. Implemented by us; called on the main thread unless
// said otherwise.
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
