#pragma once

#include <chrono>

#include "cefapp/cef_app_handler.h"

// The product's application handler, which besides can play the page's part of an exchange
// natively: what a page can reach at most. Without such an exchange under way it only tests one
// number more for each message than the product does. Renderer's main thread only.
class BenchAppHandler : public CEFAppHandler {
 public:
  enum class Reply { kNone, kSameMessage };

  // Sends `message` to the host and takes the next `count` messages from there itself, each of
  // which but the last it answers as told. Then the page gets a message bench.finished with the
  // time in milliseconds from the sending.
  void Exchange(const CefRefPtr<CefBrowser>& browser, const CefRefPtr<CefProcessMessage>& message,
                int count, Reply reply);

  // Sends `count` messages with empty lists, the last of them one that the host answers.
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
