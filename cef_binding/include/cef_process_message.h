#pragma once

#include "include/capi/cef_process_message_capi.h"
#include "include/cef_values.h"

typedef cef_process_id_t CefProcessId;

class CefProcessMessage : public cef_binding::LibraryObject<cef_process_message_t> {
 public:
  using LibraryObject::LibraryObject;

  // Returns null when `name` is empty.
  static CefRefPtr<CefProcessMessage> Create(const CefString& name);

  CefString GetName() { return cef_binding::TakeString(Call(&cef_process_message_t::get_name)); }
  // Returns the list of the message itself, for reading and writing, or null once the message has
  // been sent.
  CefRefPtr<CefListValue> GetArgumentList() {
    return cef_binding::Adopt<CefListValue>(Call(&cef_process_message_t::get_argument_list));
  }
};
