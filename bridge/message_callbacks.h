#pragma once

#include <map>
#include <string>
#include <utility>

#include "bridge/array_packing.h"
#include "bridge/context_runner.h"
#include "include/cef_browser.h"
#include "include/cef_process_message.h"
#include "include/cef_v8.h"

// The message name in UTF-8 and the identifier of the browser whose page registered the callback.
// Ordered by the bytes of the name, then by the identifier.
using MessageCallbackKey = std::pair<std::string, int>;

// The script context that registered the callback, and the script function to call in it.
using MessageCallbackEntry = std::pair<CefRefPtr<CefV8Context>, CefRefPtr<CefV8Value>>;

// Stores the callbacks that pages register for messages of the browser process, by name and
// browser. An entry exists until it is removed or its context is released.
//
// The registry is reference-counted, because native functions refer to it as long as CEF keeps
// them. The derived class implements the counting. Not thread-safe: everything except the counting
// must happen on the renderer's main thread.
class MessageCallbacks : public virtual CefBaseRefCounted {
 public:
  // Registers a callback. Drops it if the name is already registered in the browser, even by
  // another frame: the first registration stays until it is removed. If `context` or `function` is
  // null, the entry exists but is never called.
  void SetMessageCallback(const std::string& name, int browserId, CefRefPtr<CefV8Context> context,
                          CefRefPtr<CefV8Value> function);

  // Removes a callback. Returns whether it was registered.
  bool RemoveMessageCallback(const std::string& name, int browserId);

 protected:
  // Releases everything that is kept for `context`: the callbacks that it registered, under any
  // name and for any browser, and the bridge's own functions in it.
  void RemoveCallbacksOf(const CefRefPtr<CefV8Context>& context);

  // Calls the callback that is registered for the name of `message` in `browser`. The callback gets
  // two arguments, the name and an array of the message's arguments, and may change the registry.
  // Returns whether a callback was called and returned the boolean true. Both arguments may be
  // null; then no callback is called.
  bool DispatchMessage(const CefRefPtr<CefBrowser>& browser,
                       const CefRefPtr<CefProcessMessage>& message);

  std::map<MessageCallbackKey, MessageCallbackEntry> callbackMap;

  // Converts the arguments of messages to arrays. Null until WebKit is initialized.
  CefRefPtr<ArrayPacking> packing_;

 private:
  ContextRunner runner_;
};
