#include "bridge/app_extension.h"

#include <utility>

#include "include/wrapper/cef_helpers.h"

const char kAppExtensionName[] = "v8/app";

// The spaces are part of the source. The second parameter of sendMessage shadows the function's own
// `arguments` on purpose: the script always forwards both parameters, even if one was omitted.
const char kAppExtensionSource[] =
    "var app;"
    "if (!app)"
    "  app = {};"
    "(function() {"
    "  app.sendMessage = function(name, arguments) {"
    "    native function sendMessage();"
    "    return sendMessage(name, arguments);"
    "  };"
    "  app.setMessageCallback = function(name, callback) {"
    "    native function setMessageCallback();"
    "    return setMessageCallback(name, callback);"
    "  };"
    "  app.removeMessageCallback = function(name) {"
    "    native function removeMessageCallback();"
    "    return removeMessageCallback(name);"
    "  };"
    "})();";

namespace {

// Returns the browser of `context`, or null if the context's frame is being removed.
CefRefPtr<CefBrowser> BrowserOf(const CefRefPtr<CefV8Context>& context) {
  return context ? context->GetBrowser() : nullptr;
}

bool IsString(const CefRefPtr<CefV8Value>& value) { return value && value->IsString(); }

// Implements the native functions. Each function returns false if its arguments are invalid. A call
// from a page that is being removed has no effect.
class ClientAppExtensionHandler : public CefV8Handler {
 public:
  ClientAppExtensionHandler(CefRefPtr<MessageCallbacks> callbacks, CefRefPtr<ArrayPacking> packing)
      : callbacks_(std::move(callbacks)), packing_(std::move(packing)) {}

  bool Execute(const CefString& name, CefRefPtr<CefV8Value> /*object*/,
               const CefV8ValueList& arguments, CefRefPtr<CefV8Value>& retval,
               CefString& exception) override {
    CEF_REQUIRE_RENDERER_THREAD();
    if (!Call(name, arguments, retval)) exception = "Invalid method arguments";
    return true;
  }

 private:
  bool Call(const CefString& name, const CefV8ValueList& arguments, CefRefPtr<CefV8Value>& retval) {
    if (name == "sendMessage") return SendMessage(arguments);
    if (name == "setMessageCallback") return SetMessageCallback(arguments);
    if (name == "removeMessageCallback") return RemoveMessageCallback(arguments, retval);
    return false;
  }

  bool SendMessage(const CefV8ValueList& arguments) {
    if (arguments.empty() || arguments.size() > 2 || !IsString(arguments[0])) return false;
    // Read before any code of the page runs, because a getter can remove the page.
    CefRefPtr<CefBrowser> browser = BrowserOf(CefV8Context::GetCurrentContext());
    const CefString name = arguments[0]->GetStringValue();
    if (name.empty()) return false;
    CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(name);
    if (!browser || !message) return true;
    if (arguments.size() == 2 && arguments[1] && arguments[1]->IsArray()) {
      packing_->CopyToList(arguments[1], message->GetArgumentList());
    }
    browser->SendProcessMessage(PID_BROWSER, message);
    return true;
  }

  bool SetMessageCallback(const CefV8ValueList& arguments) {
    if (arguments.size() != 2 || !IsString(arguments[0]) || !arguments[1] ||
        !arguments[1]->IsFunction()) {
      return false;
    }
    CefRefPtr<CefV8Context> context = CefV8Context::GetCurrentContext();
    if (CefRefPtr<CefBrowser> browser = BrowserOf(context)) {
      callbacks_->SetMessageCallback(arguments[0]->GetStringValue(), browser->GetIdentifier(),
                                     context, arguments[1]);
    }
    return true;
  }

  bool RemoveMessageCallback(const CefV8ValueList& arguments, CefRefPtr<CefV8Value>& retval) {
    if (arguments.size() != 1 || !IsString(arguments[0])) return false;
    CefRefPtr<CefBrowser> browser = BrowserOf(CefV8Context::GetCurrentContext());
    retval = CefV8Value::CreateBool(browser &&
                                    callbacks_->RemoveMessageCallback(
                                        arguments[0]->GetStringValue(), browser->GetIdentifier()));
    return true;
  }

  const CefRefPtr<MessageCallbacks> callbacks_;
  const CefRefPtr<ArrayPacking> packing_;

  IMPLEMENT_REFCOUNTING(ClientAppExtensionHandler)
};

}  // namespace

void RegisterAppExtension(CefRefPtr<MessageCallbacks> callbacks, CefRefPtr<ArrayPacking> packing) {
  CefRegisterExtension(kAppExtensionName, kAppExtensionSource,
                       new ClientAppExtensionHandler(std::move(callbacks), std::move(packing)));
}
