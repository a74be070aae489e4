#pragma once

#include "include/capi/cef_app_capi.h"
#include "include/internal/cef_library_object.h"

// A command line. Names of switches are in lower case and without dashes.
class CefCommandLine : public cef_binding::LibraryObject<cef_command_line_t> {
 public:
  using LibraryObject::LibraryObject;

  static CefRefPtr<CefCommandLine> CreateCommandLine();
  // Returns the command line of this process, which is read-only once CEF runs.
  static CefRefPtr<CefCommandLine> GetGlobalCommandLine();

  bool HasSwitch(const CefString& name) {
    if (cef_binding::Rejected(name)) return false;
    return Call(&cef_command_line_t::has_switch, name.GetStruct()) != 0;
  }
  CefString GetSwitchValue(const CefString& name) {
    if (cef_binding::Rejected(name)) return {};
    return cef_binding::TakeString(Call(&cef_command_line_t::get_switch_value, name.GetStruct()));
  }
  void AppendSwitch(const CefString& name) {
    if (cef_binding::Rejected(name)) return;
    Call(&cef_command_line_t::append_switch, name.GetStruct());
  }
  void AppendSwitchWithValue(const CefString& name, const CefString& value) {
    if (cef_binding::Rejected(name) || cef_binding::Rejected(value)) return;
    Call(&cef_command_line_t::append_switch_with_value, name.GetStruct(), value.GetStruct());
  }
};
