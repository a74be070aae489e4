#pragma once

#include "include/cef_browser.h"

class CefLifeSpanHandler : public virtual CefBaseRefCounted {
 public:
  virtual void OnAfterCreated(CefRefPtr<CefBrowser> /*browser*/) {}
  virtual void OnBeforeClose(CefRefPtr<CefBrowser> /*browser*/) {}
};
