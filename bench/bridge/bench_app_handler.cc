#include "bench/bridge/bench_app_handler.h"

#include "bench/bridge/bench_extension.h"

void BenchAppHandler::Exchange(const CefRefPtr<CefBrowser>& browser,
                               const CefRefPtr<CefProcessMessage>& message, int count,
                               Reply reply) {
  left_ = count;
  reply_ = reply;
  start_ = Clock::now();
  browser->SendProcessMessage(PID_BROWSER, message);
}

void BenchAppHandler::SendBurst(const CefRefPtr<CefBrowser>& browser, int count) {
  left_ = 1;
  start_ = Clock::now();
  for (int i = 1; i < count; ++i) {
    browser->SendProcessMessage(PID_BROWSER, CefProcessMessage::Create("bench.up"));
  }
  browser->SendProcessMessage(PID_BROWSER, CefProcessMessage::Create("bench.echo"));
}

void BenchAppHandler::OnWebKitInitialized() {
  CEFAppHandler::OnWebKitInitialized();
  RegisterBenchExtension(this);
}

bool BenchAppHandler::OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                               CefProcessId source_process,
                                               CefRefPtr<CefProcessMessage> message) {
  if (left_ == 0) {
    return CEFAppHandler::OnProcessMessageReceived(browser, source_process, message);
  }
  if (--left_ == 0) {
    Finish(browser);
  } else if (reply_ == Reply::kSameMessage) {
    browser->SendProcessMessage(PID_BROWSER, message);
  }
  return true;
}

void BenchAppHandler::Finish(const CefRefPtr<CefBrowser>& browser) {
  const std::chrono::duration<double, std::milli> time = Clock::now() - start_;
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("bench.finished");
  CefRefPtr<CefListValue> list = message ? message->GetArgumentList() : nullptr;
  if (!list) return;
  list->SetDouble(0, time.count());
  CEFAppHandler::OnProcessMessageReceived(browser, PID_BROWSER, message);
}
