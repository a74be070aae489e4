#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/off_screen_host.h"
#include "include/cef_app.h"

namespace {

// The far end of the messages: it looks at the name alone, so that its share of a round trip is the
// same for every payload and for every way that a page can pack one.
//
//   bench.echo                 comes back as it is
//   bench.up                   has no effect
//   bench.down [count, text]   sends `count` messages bench.echo, each with the one string `text`,
//                              or with an empty list when there is no text
//   bench.print [text]         prints a line
//   bench.quit
class MessageHost : public OffScreenClient {
 public:
  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId /*source_process*/,
                                CefRefPtr<CefProcessMessage> message) override {
    const CefString name = message->GetName();
    if (name == echo_) {
      browser->SendProcessMessage(PID_RENDERER, message);
    } else if (name != up_) {
      CarryOut(browser, name, message->GetArgumentList());
    }
    return true;
  }

  // The page says nothing there unless its script fails; then there is nothing to compare.
  bool OnConsoleMessage(CefRefPtr<CefBrowser> /*browser*/, const CefString& message,
                        const CefString& source, int line) override {
    std::fprintf(stderr, "%s:%d: %s\n", source.ToString().c_str(), line,
                 message.ToString().c_str());
    std::exit(EXIT_FAILURE);
  }

  void OnBeforeClose(CefRefPtr<CefBrowser> /*browser*/) override { CefQuitMessageLoop(); }

 private:
  void CarryOut(const CefRefPtr<CefBrowser>& browser, const std::string& name,
                const CefRefPtr<CefListValue>& arguments) {
    if (!arguments) return;
    if (name == "bench.print") {
      std::puts(arguments->GetString(0).ToString().c_str());
      std::fflush(stdout);
    } else if (name == "bench.down") {
      SendBurst(browser, arguments);
    } else if (name == "bench.quit") {
      if (CefRefPtr<CefBrowserHost> host = browser->GetHost()) host->CloseBrowser(true);
    } else {
      std::fprintf(stderr, "a message that the host does not know: %s\n", name.c_str());
    }
  }

  void SendBurst(const CefRefPtr<CefBrowser>& browser, const CefRefPtr<CefListValue>& arguments) {
    const int count = arguments->GetInt(0);
    const CefString text = arguments->GetString(1);
    for (int i = 0; i < count; ++i) {
      CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(echo_);
      CefRefPtr<CefListValue> list = message ? message->GetArgumentList() : nullptr;
      if (!list) return;
      if (!text.empty()) list->SetString(0, text);
      browser->SendProcessMessage(PID_RENDERER, message);
    }
  }

  const CefString echo_ = "bench.echo";
  const CefString up_ = "bench.up";

  IMPLEMENT_REFCOUNTING(MessageHost)
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: bench_message_host HELPER URL\n", stderr);
    return 2;
  }
  const CefRefPtr<MessageHost> client(new MessageHost);
  const std::string url = argv[2];
  return RunOffScreenHost(argv, argv[1], [client, url] { client->Open(url); });
}
