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
// Ordered by the bytes of the name, then by the number.
using MessageCallbackKey = std::pair<std::string, int>;

// The script context that registered the callback, and the script function to call in it.
using MessageCallbackEntry = std::pair<CefRefPtr<CefV8Context>, CefRefPtr<CefV8Value>>;

// The callbacks that pages have registered for messages of the browser process, by name and
// browser. An entry lives until it is removed or its context is released.
//
// It is counted because native functions refer to it for as long as the library keeps them; the
// class that derives from it implements the counting. All else happens on one thread, the
// renderer's main thread, without a lock.
class MessageCallbacks : public virtual CefBaseRefCounted {
 public:
  // The first registration of a name in a browser stays until it is removed: another one is
  // dropped, even when it comes from another frame.
  void SetMessageCallback(const std::string& name, int browserId, CefRefPtr<CefV8Context> context,
                          CefRefPtr<CefV8Value> function);

  // Returns true when there was such a callback.
  bool RemoveMessageCallback(const std::string& name, int browserId);

 protected:
  // Drops everything that is kept for `context`: the callbacks that it registered, whatever their
  // names and browsers, and what runs in it.
  void RemoveCallbacksOf(const CefRefPtr<CefV8Context>& context);

  // Calls the callback that is registered for the name of `message` in `browser` with two
  // arguments, the name and an array of the message's arguments. Returns true when there is one and
  // it returned the boolean true. The callback may change the registry while it runs.
  bool DispatchMessage(const CefRefPtr<CefBrowser>& browser,
                       const CefRefPtr<CefProcessMessage>& message);

  std::map<MessageCallbackKey, MessageCallbackEntry> callbackMap;

  // Makes the arrays of arguments; null until the render process has one.
  CefRefPtr<ArrayPacking> packing_;

 private:
  ContextRunner runner_;
};
