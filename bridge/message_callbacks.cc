#include "bridge/message_callbacks.h"

#include "bridge/value_conversion.h"

namespace {

// The array of a message's arguments; null when the context is too far gone to make it.
CefRefPtr<CefV8Value> CreateArgumentArray(const CefRefPtr<CefListValue>& list) {
  CefRefPtr<CefV8Value> array =
      CefV8Value::CreateArray(list ? static_cast<int>(list->GetSize()) : 0);
  if (array && list) CopyListToV8Array(list, array);
  return array;
}

// The two arguments of a callback, made in its context; none when it cannot be entered.
CefV8ValueList CreateCallbackArguments(const CefRefPtr<CefV8Context>& context,
                                       const CefString& name, const CefRefPtr<CefListValue>& list) {
  if (!context->Enter()) return {};
  CefRefPtr<CefV8Value> text = CefV8Value::CreateString(name);
  CefRefPtr<CefV8Value> array = CreateArgumentArray(list);
  context->Exit();
  if (!text || !array) return {};
  return {text, array};
}

}  // namespace

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

  // References of its own: the callback may remove its entry, and so may the end of its frame.
  const auto entry = found->second;
  const CefRefPtr<CefV8Context>& context = entry.first;
  const CefRefPtr<CefV8Value>& function = entry.second;
  if (!context || !function) return false;
  const CefV8ValueList arguments =
      CreateCallbackArguments(context, name, message->GetArgumentList());
  if (arguments.empty()) return false;

  // The context has been left again: a callback that removes its own frame ends the context, and
  // one that has ended cannot be left any more, so that the frame would stay in memory.
  CefRefPtr<CefV8Value> result = function->ExecuteFunctionWithContext(context, nullptr, arguments);
  return result && result->IsBool() && result->GetBoolValue();
}
