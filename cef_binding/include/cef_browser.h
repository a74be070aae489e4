#pragma once

#include "include/capi/cef_browser_capi.h"
#include "include/cef_frame.h"
#include "include/cef_process_message.h"
#include "include/cef_request.h"

class CefClient;
class CefRequestContext;

// Controls the window and the rendering of a browser. Available only in the browser process, on any
// thread.
class CefBrowserHost : public cef_binding::LibraryObject<cef_browser_host_t> {
 public:
  typedef cef_paint_element_type_t PaintElementType;

  using LibraryObject::LibraryObject;

  // Requests a browser, which is ready when CefLifeSpanHandler::OnAfterCreated() is called. Returns
  // false when the browser cannot be created. `client` may be null, and `url` may be empty. A null
  // `request_context` selects the global context.
  static bool CreateBrowser(const CefWindowInfo& windowInfo, CefRefPtr<CefClient> client,
                            const CefString& url, const CefBrowserSettings& settings,
                            std::nullptr_t request_context);

  void CloseBrowser(bool force_close) {
    Call(&cef_browser_host_t::close_browser, force_close ? 1 : 0);
  }
  // Returns true when the browser renders off-screen.
  bool IsWindowRenderingDisabled() {
    return Call(&cef_browser_host_t::is_window_rendering_disabled) != 0;
  }
  // Makes the library query the size of the view again. Off-screen rendering only; a popup is
  // painted only after this call.
  void WasResized() { Call(&cef_browser_host_t::was_resized); }
  // Requests a repaint of the whole view. Off-screen rendering only.
  void Invalidate(PaintElementType type) { Call(&cef_browser_host_t::invalidate, type); }
};

class CefBrowser : public cef_binding::LibraryObject<cef_browser_t> {
 public:
  using LibraryObject::LibraryObject;

  CefRefPtr<CefBrowserHost> GetHost() {  // browser process only
    return cef_binding::Adopt<CefBrowserHost>(Call(&cef_browser_t::get_host));
  }
  void GoBack() { Call(&cef_browser_t::go_back); }
  void GoForward() { Call(&cef_browser_t::go_forward); }
  void Reload() { Call(&cef_browser_t::reload); }
  // Returns a number that is the same in the browser process and in the renderers.
  int GetIdentifier() { return Call(&cef_browser_t::get_identifier); }
  // Returns true when a page opened this browser.
  bool IsPopup() { return Call(&cef_browser_t::is_popup) != 0; }
  CefRefPtr<CefFrame> GetMainFrame() {
    return cef_binding::Adopt<CefFrame>(Call(&cef_browser_t::get_main_frame));
  }
  // Hands `message` over to the library. Returns false when the message could not be sent.
  bool SendProcessMessage(CefProcessId target_process, CefRefPtr<CefProcessMessage> message) {
    if (cef_binding::Rejected(message)) return false;
    return Call(&cef_browser_t::send_process_message, target_process, cef_binding::Pass(message)) !=
           0;
  }
};
