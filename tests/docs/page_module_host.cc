// A browser that answers requests with the code of docs/page-module.md. Pages send it:
//
//   test.print [text]   prints a line
//   test.quit           closes the browser

#include <cstdio>
#include <string>

#include "include/cef_app.h"
#include "support/off_screen_host.h"

namespace {

#include "answer_request.inc"

class PageModuleHost : public OffScreenClient {
 public:
  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId /*source_process*/,
                                CefRefPtr<CefProcessMessage> message) override {
    if (AnswerRequest(browser, message)) return true;
    if (message->GetName() == "test.print") {
      std::puts(message->GetArgumentList()->GetString(0).ToString().c_str());
    } else if (message->GetName() == "test.quit") {
      browser->GetHost()->CloseBrowser(true);
    }
    return true;
  }

  void OnBeforeClose(CefRefPtr<CefBrowser> /*browser*/) override { CefQuitMessageLoop(); }

 private:
  IMPLEMENT_REFCOUNTING(PageModuleHost)
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: page_module_host HELPER URL\n", stderr);
    return 2;
  }
  const CefRefPtr<PageModuleHost> client(new PageModuleHost);
  const std::string url = argv[2];
  return RunOffScreenHost(argv, argv[1], [client, url] { client->Open(url); });
}
