#include "include/cef_parser.h"

#include "include/capi/cef_parser_capi.h"

CefString CefWriteJSON(CefRefPtr<CefValue> node, cef_json_writer_options_t options) {
  if (cef_binding::Rejected(node)) return CefString();
  return cef_binding::TakeString(cef_write_json(cef_binding::Pass(node), options));
}
