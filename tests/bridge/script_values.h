#pragma once

#include <string>
#include <utility>
#include <vector>

#include "bridge/message_callbacks.h"
#include "support/fake_cef/fake_library.h"

// Short functions that create the objects on which the bridge works.

using Value = fake_cef::Own<fake_cef::FakeV8Value>;
using Arguments = std::vector<fake_cef::FakeV8Value*>;

inline Value Script(fake_cef::ScriptValue value) {
  return fake_cef::Make<fake_cef::FakeV8Value>(std::move(value));
}
inline Value ScriptString(std::u16string text) { return Script(std::move(text)); }
inline Value ScriptArray(std::vector<Value> elements) {
  return Script(fake_cef::Array{std::move(elements), {}});
}

// Returns the object in the form in which the product receives it.
inline CefRefPtr<CefV8Value> Wrapped(const Value& value) {
  return cef_binding::Adopt<CefV8Value>(value.Give());
}
inline CefRefPtr<CefListValue> Wrapped(const fake_cef::Own<fake_cef::FakeList>& list) {
  return cef_binding::Adopt<CefListValue>(list.Give());
}
inline CefRefPtr<CefV8Context> Wrapped(const fake_cef::Own<fake_cef::FakeV8Context>& context) {
  return cef_binding::Adopt<CefV8Context>(context.Give());
}
inline CefRefPtr<CefBrowser> Wrapped(const fake_cef::Own<fake_cef::FakeBrowser>& browser) {
  return cef_binding::Adopt<CefBrowser>(browser.Give());
}
inline CefRefPtr<CefProcessMessage> Wrapped(const fake_cef::Own<fake_cef::FakeMessage>& message) {
  return cef_binding::Adopt<CefProcessMessage>(message.Give());
}

struct NativeResult {
  Value value;
  std::string exception;
};

// Calls a native function of an extension as CEF does.
NativeResult CallNative(const fake_cef::Library::Extension& extension, const std::string& name,
                        const std::vector<Value>& arguments);

// Makes the operations for derived classes public.
class Registry : public MessageCallbacks {
 public:
  using MessageCallbacks::callbackMap;
  using MessageCallbacks::DispatchMessage;
  using MessageCallbacks::RemoveCallbacksOf;

 private:
  IMPLEMENT_REFCOUNTING(Registry)
};
