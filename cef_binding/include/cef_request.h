#pragma once

#include "include/capi/cef_browser_capi.h"
#include "include/internal/cef_library_object.h"

typedef cef_transition_type_t CefTransitionType;

class CefRequest : public cef_binding::LibraryObject<cef_request_t> {
 public:
  using LibraryObject::LibraryObject;
};
