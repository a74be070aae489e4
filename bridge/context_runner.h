#pragma once

#include <functional>

#include "bridge/per_context.h"
#include "include/cef_v8.h"

// Runs native code within script contexts. The code may run setters of a page, which can end the
// context. A context that was entered by hand could not be left then, and its frame would stay in
// memory. Therefore the code runs as a native function that is called in the context.
//
// Lives and runs on the renderer's main thread.
class ContextRunner {
 public:
  ContextRunner();
  ~ContextRunner();

  // Calls `action` within `context`, which need not be entered. Returns false, without a call, when
  // the context has ended.
  bool Run(const CefRefPtr<CefV8Context>& context, const std::function<void()>& action);

  // Drops the function that is kept for `context`.
  void Forget(const CefRefPtr<CefV8Context>& context) { functions_.Remove(context); }

 private:
  class Handler;

  CefRefPtr<CefV8Value> FunctionIn(const CefRefPtr<CefV8Context>& context);

  const CefRefPtr<Handler> handler_;
  PerContext<CefRefPtr<CefV8Value>> functions_;
};
