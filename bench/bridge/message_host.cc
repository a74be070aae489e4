#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "bench/helper_link.h"
#include "include/cef_app.h"
#include "support/off_screen_host.h"

namespace {

struct Page {
  std::string helper;
  std::string url;
};

// Opens one or two pages, each in a renderer with its own helper. The last page measures. If there
// are two pages, the first executes requests of the second, and the second opens when the first is
// ready.
//
// The host is the other end of the messages. It reads only their names, so that its part of a round
// trip takes the same time for every payload and every encoding.
//
//   bench.echo                 returns unchanged
//   bench.values [json]        returns as bench.echo, parsed and serialized again
//   bench.up                   has no effect
//   bench.down [count, text]   sends `count` messages bench.echo, each with the one string `text`,
//                              or with an empty list without a text
//   bench.ready                opens the second page
//   bench.ask, bench.answer    go to the first page, and from there to the second
//   bench.print [text]         prints a line
//   bench.quit
class MessageHost : public OffScreenClient {
 public:
  explicit MessageHost(std::vector<Page> pages) : pages_(std::move(pages)) {}

  void OpenNext() {
    const Page& page = pages_.at(opened_++);
    link_.PointTo(page.helper);
    Open(page.url);
  }

  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId /*source_process*/,
                                CefRefPtr<CefProcessMessage> message) override {
    const CefString name = message->GetName();
    if (name == echo_) {
      browser->SendProcessMessage(PID_RENDERER, message);
    } else if (name == values_) {
      SendValues(browser, message->GetArgumentList());
    } else if (name == "bench.ask") {
      asking_ = browser;
      ready_->SendProcessMessage(PID_RENDERER, message);
    } else if (name == "bench.answer") {
      asking_->SendProcessMessage(PID_RENDERER, message);
    } else if (name != up_) {
      Execute(browser, name, message->GetArgumentList());
    }
    return true;
  }

  // Only a script error makes the page write to its console.
  bool OnConsoleMessage(CefRefPtr<CefBrowser> /*browser*/, const CefString& message,
                        const CefString& source, int line) override {
    std::fprintf(stderr, "%s:%d: %s\n", source.ToString().c_str(), line,
                 message.ToString().c_str());
    std::exit(EXIT_FAILURE);
  }

  void OnBeforeClose(CefRefPtr<CefBrowser> /*browser*/) override {
    if (--opened_ == 0) CefQuitMessageLoop();
  }

 private:
  void Execute(const CefRefPtr<CefBrowser>& browser, const std::string& name,
               const CefRefPtr<CefListValue>& arguments) {
    if (!arguments) return;
    if (name == "bench.print") {
      std::puts(arguments->GetString(0).ToString().c_str());
      std::fflush(stdout);
    } else if (name == "bench.down") {
      SendBurst(browser, arguments);
    } else if (name == "bench.ready") {
      link_.TakeStart();
      ready_ = browser;
      OpenNext();
    } else if (name == "bench.quit") {
      link_.TakeStart();  // the page had its own renderer
      Close(browser);
      if (ready_) Close(ready_);
      ready_ = asking_ = nullptr;
    } else {
      std::fprintf(stderr, "unknown message: %s\n", name.c_str());
    }
  }

  static void Close(const CefRefPtr<CefBrowser>& browser) {
    if (CefRefPtr<CefBrowserHost> host = browser->GetHost()) host->CloseBrowser(true);
  }

  void SendValues(const CefRefPtr<CefBrowser>& browser, const CefRefPtr<CefListValue>& arguments) {
    const auto values = nlohmann::json::parse(arguments->GetString(0).ToString());
    CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(echo_);
    CefRefPtr<CefListValue> list = message ? message->GetArgumentList() : nullptr;
    if (!list) return;
    list->SetString(0, values.dump());
    browser->SendProcessMessage(PID_RENDERER, message);
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
  const CefString values_ = "bench.values";
  const HelperLink link_;
  const std::vector<Page> pages_;
  std::size_t opened_ = 0;
  CefRefPtr<CefBrowser> ready_;
  CefRefPtr<CefBrowser> asking_;

  IMPLEMENT_REFCOUNTING(MessageHost)
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4 || argc % 2 != 0) {
    std::fputs(
        "usage: BENCH_START_FOLDER=FOLDER bench_message_host LAUNCHER HELPER URL [HELPER URL]\n",
        stderr);
    return 2;
  }
  std::vector<Page> pages;
  for (int i = 2; i < argc; i += 2)
    pages.push_back({argv[i], argv[i + 1]});
  const CefRefPtr<MessageHost> client(new MessageHost(pages));
  return RunOffScreenHost(argv, argv[1], [client] { client->OpenNext(); });
}
