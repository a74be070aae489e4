#pragma once

#include "include/cef_browser.h"

class CefLoadHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_errorcode_t ErrorCode;

  virtual void OnLoadEnd(CefRefPtr<CefBrowser> /*browser*/, CefRefPtr<CefFrame> /*frame*/,
                         int /*httpStatusCode*/) {}
  virtual void OnLoadError(CefRefPtr<CefBrowser> /*browser*/, CefRefPtr<CefFrame> /*frame*/,
                           ErrorCode /*errorCode*/, const CefString& /*errorText*/,
                           const CefString& /*failedUrl*/) {}
};
