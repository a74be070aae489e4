#include "include/cef_cookie.h"

#include "include/capi/cef_string_capi.h"

CefRefPtr<CefCookieManager> CefCookieManager::GetGlobalManager(std::nullptr_t callback) {
  return cef_binding::Adopt<CefCookieManager>(cef_cookie_manager_get_global_manager(callback));
}

void CefCookieManager::SetSupportedSchemes(const std::vector<CefString>& schemes,
                                           std::nullptr_t callback) {
  cef_string_list_t list = cef_string_list_alloc();
  for (const CefString& scheme : schemes)
    cef_string_list_append(list, scheme.GetStruct());
  Call(&cef_cookie_manager_t::set_supported_schemes, list, callback);
  cef_string_list_free(list);
}
