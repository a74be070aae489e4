#pragma once

#include <functional>

#include "bridge/per_context.h"
#include "include/cef_v8.h"

// Runs native code in script contexts. The code may run setters of a page, which can end the
// context. If the context had been entered with Enter(), it could not be exited then, and its frame
// would stay in memory. Therefore the code runs as a native function that is called in the context.
//
// Must be used on the renderer's main thread.
class ContextRunner {
 public:
  ContextRunner();
  ~ContextRunner();

  // Calls `action` in `context`, which the caller need not enter. Returns false, without a call, if
  // the context has ended.
  bool Run(const CefRefPtr<CefV8Context>& context, const std::function<void()>& action);

  // Releases the function that is kept for `context`.
  void Forget(const CefRefPtr<CefV8Context>& context) { functions_.Remove(context); }

 private:
  class Handler;

  CefRefPtr<CefV8Value> FunctionIn(const CefRefPtr<CefV8Context>& context);

  const CefRefPtr<Handler> handler_;
  PerContext<CefRefPtr<CefV8Value>> functions_;
};
