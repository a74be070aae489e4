#include "include/cef_process_message.h"

CefRefPtr<CefProcessMessage> CefProcessMessage::Create(const CefString& name) {
  if (cef_binding::Rejected(name)) return nullptr;
  return cef_binding::Adopt<CefProcessMessage>(cef_process_message_create(name.GetStruct()));
}
