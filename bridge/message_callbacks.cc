#include "bridge/message_callbacks.h"

#include "bridge/value_conversion.h"

namespace {

// Stays in a script context while it lives, if it could get in.
class EnteredContext {
 public:
  explicit EnteredContext(CefRefPtr<CefV8Context> context)
      : context_(std::move(context)), entered_(context_ && context_->Enter()) {}
  EnteredContext(const EnteredContext&) = delete;
  EnteredContext& operator=(const EnteredContext&) = delete;
  ~EnteredContext() {
    if (entered_) context_->Exit();
  }

  explicit operator bool() const { return entered_; }

 private:
  const CefRefPtr<CefV8Context> context_;
  const bool entered_;
};

// The two arguments of a callback; empty when the context is too far gone to make them.
CefV8ValueList CallbackArguments(const CefString& name, const CefRefPtr<CefListValue>& list) {
  CefRefPtr<CefV8Value> array =
      CefV8Value::CreateArray(list ? static_cast<int>(list->GetSize()) : 0);
  CefRefPtr<CefV8Value> text = CefV8Value::CreateString(name);
  if (!array || !text) return {};
  if (list) CopyListToV8Array(list, array);
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
  const MessageCallbackEntry entry = found->second;
  const CefRefPtr<CefV8Value>& function = entry.second;
  const EnteredContext entered(entry.first);
  if (!entered || !function) return false;
  const CefV8ValueList arguments = CallbackArguments(name, message->GetArgumentList());
  if (arguments.empty()) return false;
  CefRefPtr<CefV8Value> result = function->ExecuteFunction(nullptr, arguments);
  return result && result->IsBool() && result->GetBoolValue();
}
