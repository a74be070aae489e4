#include "bridge/context_runner.h"

#include <utility>

class ContextRunner::Handler : public CefV8Handler {
 public:
  bool Execute(const CefString& /*name*/, CefRefPtr<CefV8Value> /*object*/,
               const CefV8ValueList& /*arguments*/, CefRefPtr<CefV8Value>& /*retval*/,
               CefString& /*exception*/) override {
    // Cleared first, because the action may run another one.
    if (const auto* next = std::exchange(action, nullptr)) (*next)();
    return true;
  }

  const std::function<void()>* action = nullptr;  // the one to run next

  IMPLEMENT_REFCOUNTING(Handler)
};

ContextRunner::ContextRunner() : handler_(new Handler) {}

ContextRunner::~ContextRunner() = default;

bool ContextRunner::Run(const CefRefPtr<CefV8Context>& context,
                        const std::function<void()>& action) {
  CefRefPtr<CefV8Value> function = FunctionIn(context);
  if (!function) return false;
  const CefRefPtr<Handler> handler = handler_;  // `action` may destroy this object
  handler->action = &action;
  function->ExecuteFunctionWithContext(context, nullptr, {});
  return std::exchange(handler->action, nullptr) == nullptr;
}

CefRefPtr<CefV8Value> ContextRunner::FunctionIn(const CefRefPtr<CefV8Context>& context) {
  CefRefPtr<CefV8Value> function = functions_.Find(context);
  if (function || !context->Enter()) return function;
  // No code of the page runs here.
  function = CefV8Value::CreateFunction("run", handler_);
  context->Exit();
  if (function) functions_.Add(context, function);
  return function;
}
