#include "include/cef_values.h"

using cef_binding::Adopt;

CefRefPtr<CefBinaryValue> CefBinaryValue::Create(const void* data, std::size_t size) {
  if (cef_binding::Rejected(data)) return nullptr;
  return Adopt<CefBinaryValue>(cef_binary_value_create(data, size));
}

CefRefPtr<CefDictionaryValue> CefDictionaryValue::Create() {
  return Adopt<CefDictionaryValue>(cef_dictionary_value_create());
}

CefRefPtr<CefValue> CefValue::Create() { return Adopt<CefValue>(cef_value_create()); }

bool CefValue::SetList(CefRefPtr<CefListValue> value) {
  if (cef_binding::Rejected(value)) return false;
  return Call(&cef_value_t::set_list, cef_binding::Pass(value)) != 0;
}

CefRefPtr<CefListValue> CefListValue::Create() {
  return Adopt<CefListValue>(cef_list_value_create());
}
