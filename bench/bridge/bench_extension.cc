#include "bench/bridge/bench_extension.h"

#include <utility>

#include "bench/bridge/conversion_timing.h"
#include "bridge/value_conversion.h"

namespace {

constexpr char kSource[] =
    "var bench = {};"
    "(function() {"
    "  bench.bounce = function(count, list) {"
    "    native function bounce();"
    "    return bounce(count, list);"
    "  };"
    "  bench.burst = function(count) {"
    "    native function burst();"
    "    return burst(count);"
    "  };"
    "  bench.receive = function(count) {"
    "    native function receive();"
    "    return receive(count);"
    "  };"
    "  bench.convert = function(what, array) {"
    "    native function convert();"
    "    return convert(what, array);"
    "  };"
    "})();";

class BenchExtensionHandler : public CefV8Handler {
 public:
  explicit BenchExtensionHandler(CefRefPtr<BenchAppHandler> application)
      : application_(std::move(application)) {}

  bool Execute(const CefString& name, CefRefPtr<CefV8Value> /*object*/,
               const CefV8ValueList& arguments, CefRefPtr<CefV8Value>& retval,
               CefString& exception) override {
    const CefRefPtr<CefV8Context> context = CefV8Context::GetCurrentContext();
    const CefRefPtr<CefBrowser> browser = context ? context->GetBrowser() : nullptr;
    if (!browser) {
      exception = "No browser";
    } else if (name == "bounce" && arguments.size() == 2) {
      Bounce(browser, arguments[0]->GetIntValue(), arguments[1]);
    } else if (name == "burst" && arguments.size() == 1) {
      application_->SendBurst(browser, arguments[0]->GetIntValue());
    } else if (name == "receive" && arguments.size() == 1) {
      Receive(browser, arguments[0]->GetIntValue());
    } else if (name == "convert" && arguments.size() == 2) {
      retval =
          CefV8Value::CreateDouble(TimeConversion(arguments[0]->GetStringValue(), arguments[1]));
    } else {
      exception = "Invalid method arguments";
    }
    return true;
  }

 private:
  void Bounce(const CefRefPtr<CefBrowser>& browser, int count, const CefRefPtr<CefV8Value>& array) {
    CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("bench.echo");
    if (!message) return;
    CopyV8ArrayToList(array, message->GetArgumentList());
    application_->Exchange(browser, message, count, BenchAppHandler::Reply::kSameMessage);
  }

  void Receive(const CefRefPtr<CefBrowser>& browser, int count) {
    CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("bench.down");
    CefRefPtr<CefListValue> list = message ? message->GetArgumentList() : nullptr;
    if (!list) return;
    list->SetInt(0, count);
    application_->Exchange(browser, message, count, BenchAppHandler::Reply::kNone);
  }

  const CefRefPtr<BenchAppHandler> application_;

  IMPLEMENT_REFCOUNTING(BenchExtensionHandler)
};

}  // namespace

void RegisterBenchExtension(CefRefPtr<BenchAppHandler> application) {
  CefRegisterExtension("v8/bench", kSource, new BenchExtensionHandler(std::move(application)));
}
