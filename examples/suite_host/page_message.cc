#include "examples/suite_host/page_message.h"

#include <cstddef>

bool SendToPages(const CefRefPtr<CefBrowser>& browser, const CefString& name,
                 const CefRefPtr<CefListValue>& list) {
  const CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(name);
  const CefRefPtr<CefListValue> target = message ? message->GetArgumentList() : nullptr;
  if (!target) return false;
  const std::size_t size = list ? list->GetSize() : 0;
  for (std::size_t i = 0; i < size; ++i) {
    if (const CefRefPtr<CefValue> value = list->GetValue(i)) target->SetValue(i, value);
  }
  return browser->SendProcessMessage(PID_RENDERER, message);
}
