#pragma once

#include <vector>

#include "include/capi/cef_app_capi.h"
#include "include/internal/cef_library_object.h"

// Manages cookies. Available only in the browser process.
class CefCookieManager : public cef_binding::LibraryObject<cef_cookie_manager_t> {
 public:
  using LibraryObject::LibraryObject;

  // The binding does not support completion callbacks, so `callback` is null in both functions.
  static CefRefPtr<CefCookieManager> GetGlobalManager(std::nullptr_t callback);

  void SetSupportedSchemes(const std::vector<CefString>& schemes, std::nullptr_t callback);
};
