#include "bridge/message_callbacks.h"

#include "bridge/value_conversion.h"

void MessageCallbacks::SetMessageCallback(const std::string& name, int browserId,
                                          CefRefPtr<CefV8Context> context,
                                          CefRefPtr<CefV8Value> function) {
  callbackMap.try_emplace({name, browserId}, std::move(context), std::move(function));
}

bool MessageCallbacks::RemoveMessageCallback(const std::string& name, int browserId) {
  return callbackMap.erase({name, browserId}) != 0;
}

void MessageCallbacks::RemoveCallbacksOf(const CefRefPtr<CefV8Context>& context) {
  if (!context) return;
  runner_.Forget(context);
  if (packing_) packing_->Forget(context);
  for (auto next = callbackMap.begin(); next != callbackMap.end();) {
    const auto entry = next++;
    const CefRefPtr<CefV8Context>& registered = entry->second.first;
    if (registered && registered->IsSame(context)) callbackMap.erase(entry);
  }
}

bool MessageCallbacks::DispatchMessage(const CefRefPtr<CefBrowser>& browser,
                                       const CefRefPtr<CefProcessMessage>& message) {
  if (callbackMap.empty() || !browser || !message) return false;
  const CefString name = message->GetName();
  const auto found = callbackMap.find({name.ToString(), browser->GetIdentifier()});
  if (found == callbackMap.end()) return false;

  // A copy with its own references, because the callback or the end of its frame may remove the
  // entry.
  const auto entry = found->second;
  const CefRefPtr<CefV8Context>& context = entry.first;
  const CefRefPtr<CefV8Value>& function = entry.second;
  if (!context || !function) return false;
  const CefRefPtr<CefListValue> list = message->GetArgumentList();
  bool returned_true = false;
  if (const CefRefPtr<ArrayPacking> packing = packing_;
      packing && list && packing->RunCallback(context, function, name, list, returned_true)) {
    return returned_true;
  }
  CefRefPtr<CefV8Value> array;
  runner_.Run(context, [&] { array = CreateV8Array(list); });
  CefRefPtr<CefV8Value> text = CefV8Value::CreateString(name);
  if (!text || !array) return false;
  CefRefPtr<CefV8Value> result =
      function->ExecuteFunctionWithContext(context, nullptr, {text, array});
  return result && result->IsBool() && result->GetBoolValue();
}
