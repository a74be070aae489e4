#pragma once

#include "include/cef_browser.h"

class CefDisplayHandler : public virtual CefBaseRefCounted {
 public:
  // Returns true to keep the message out of the library's log.
  virtual bool OnConsoleMessage(CefRefPtr<CefBrowser> /*browser*/, const CefString& /*message*/,
                                const CefString& /*source*/, int /*line*/) {
    return false;
  }
};
