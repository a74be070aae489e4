#include "include/cef_command_line.h"

CefRefPtr<CefCommandLine> CefCommandLine::CreateCommandLine() {
  return cef_binding::Adopt<CefCommandLine>(cef_command_line_create());
}

CefRefPtr<CefCommandLine> CefCommandLine::GetGlobalCommandLine() {
  return cef_binding::Adopt<CefCommandLine>(cef_command_line_get_global());
}
