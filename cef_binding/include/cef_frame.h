#pragma once

#include "include/capi/cef_browser_capi.h"
#include "include/internal/cef_library_object.h"

class CefFrame : public cef_binding::LibraryObject<cef_frame_t> {
 public:
  using LibraryObject::LibraryObject;

  void LoadURL(const CefString& url) {
    if (cef_binding::Rejected(url)) return;
    Call(&cef_frame_t::load_url, url.GetStruct());
  }
  bool IsMain() { return Call(&cef_frame_t::is_main) != 0; }
  CefString GetURL() { return cef_binding::TakeString(Call(&cef_frame_t::get_url)); }
};
