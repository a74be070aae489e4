#pragma once

#include "include/cef_browser.h"

class CefLifeSpanHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_window_open_disposition_t WindowOpenDisposition;

  // Called on the IO thread before a page opens a popup. Returns true to prevent the popup.
  // `windowInfo` and `settings` hold the defaults, and `client` is the client of `browser`; the
  // handler may change all three and `no_javascript_access`.
  virtual bool OnBeforePopup(CefRefPtr<CefBrowser> /*browser*/, CefRefPtr<CefFrame> /*frame*/,
                             const CefString& /*target_url*/,
                             const CefString& /*target_frame_name*/,
                             WindowOpenDisposition /*target_disposition*/, bool /*user_gesture*/,
                             const CefPopupFeatures& /*popupFeatures*/,
                             CefWindowInfo& /*windowInfo*/, CefRefPtr<CefClient>& /*client*/,
                             CefBrowserSettings& /*settings*/, bool* /*no_javascript_access*/) {
    return false;
  }
  virtual void OnAfterCreated(CefRefPtr<CefBrowser> /*browser*/) {}
  virtual void OnBeforeClose(CefRefPtr<CefBrowser> /*browser*/) {}
};
