#pragma once

#include <functional>

#include "bridge/per_context.h"
#include "include/cef_v8.h"

// Runs native code in script contexts. The code may run setters of a page, which can end the
// context. A context that ends between Enter() and Exit() cannot be exited, and its frame stays in
// memory. Therefore the code runs as a native function that is called in the context.
//
// Must be used on the renderer's main thread.
class ContextRunner {
 public:
  ContextRunner();
  ~ContextRunner();

  // Calls `action` in `context`, which must not be null and need not be entered. Returns false,
  // without a call, if the context has ended or CEF cannot create the native function. Calls may
  // nest.
  bool Run(const CefRefPtr<CefV8Context>& context, const std::function<void()>& action);

  // Releases the function that is kept for `context`.
  void Forget(const CefRefPtr<CefV8Context>& context) { functions_.Remove(context); }

 private:
  class Handler;

  CefRefPtr<CefV8Value> FunctionIn(const CefRefPtr<CefV8Context>& context);

  const CefRefPtr<Handler> handler_;
  PerContext<CefRefPtr<CefV8Value>> functions_;
};
