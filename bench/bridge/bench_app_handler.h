#pragma once

#include <chrono>

#include "cefapp/cef_app_handler.h"

// The product's application handler, which can also perform the page's part of an exchange
// natively. Such an exchange is the upper limit of a page's speed. At other times, each message
// costs one more comparison than in the product. Renderer's main thread only.
class BenchAppHandler : public CEFAppHandler {
 public:
  enum class Reply { kNone, kSameMessage };

  // Sends `message` to the host and receives the next `count` messages in place of the page.
  // Answers each of them except the last according to `reply`. Then sends the page a message
  // bench.finished with the elapsed milliseconds. `count` must be at least 1.
  void Exchange(const CefRefPtr<CefBrowser>& browser, const CefRefPtr<CefProcessMessage>& message,
                int count, Reply reply);

  // Sends `count` messages with empty lists. The host answers the last message. Then sends the page
  // bench.finished, like Exchange().
  void SendBurst(const CefRefPtr<CefBrowser>& browser, int count);

  void OnWebKitInitialized() override;
  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId source_process,
                                CefRefPtr<CefProcessMessage> message) override;

 private:
  using Clock = std::chrono::steady_clock;

  void Finish(const CefRefPtr<CefBrowser>& browser);

  int left_ = 0;
  Reply reply_ = Reply::kNone;
  Clock::time_point start_;
};
