#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "bench/helper_link.h"
#include "include/cef_app.h"
#include "support/off_screen_host.h"

namespace {

long long Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<long long>(now.tv_sec) * 1000000000 + now.tv_nsec;
}

// Returns KiB, or -1 when the process has ended. Stops the process during the measurement.
long PrivateDirty(int pid) {
  kill(pid, SIGSTOP);
  long size = -1;
  std::ifstream file("/proc/" + std::to_string(pid) + "/smaps_rollup");
  for (std::string word; file >> word;) {
    if (word == "Private_Dirty:" && file >> size) break;
  }
  kill(pid, SIGCONT);
  return size;
}

// Opens the page repeatedly, each time in a new renderer with the next helper. For each renderer,
// prints the time until the page's first console message, the message's text, which must not
// require escapes, and the private dirty memory at that time.
class StartHost : public OffScreenClient {
 public:
  StartHost(std::vector<std::string> helpers, std::string url, long rounds)
      : helpers_(std::move(helpers)),
        url_(std::move(url)),
        left_(static_cast<std::size_t>(rounds) * helpers_.size()) {}

  void OpenNext() {
    if (left_ == 0) {
      CefQuitMessageLoop();
      return;
    }
    --left_;
    current_ = (current_ + 1) % helpers_.size();
    has_reported_ = false;
    link_.PointTo(helpers_[current_]);
    Open(url_);
  }

  bool OnConsoleMessage(CefRefPtr<CefBrowser> browser, const CefString& message,
                        const CefString& /*source*/, int /*line*/) override {
    const long long now = Now();
    if (has_reported_) return true;
    has_reported_ = true;
    const RendererStart renderer = link_.TakeStart();
    std::printf("{\"helper\": %zu, \"ms\": %.3f, \"kib\": %ld, \"text\": \"%s\"}\n", current_,
                static_cast<double>(now - renderer.nanoseconds) / 1e6, PrivateDirty(renderer.pid),
                message.ToString().c_str());
    std::fflush(stdout);
    browser->GetHost()->CloseBrowser(true);
    return true;
  }

  void OnBeforeClose(CefRefPtr<CefBrowser> /*browser*/) override { OpenNext(); }

 private:
  const HelperLink link_;
  const std::vector<std::string> helpers_;
  const std::string url_;
  std::size_t left_;
  std::size_t current_ = 0;
  bool has_reported_ = false;

  IMPLEMENT_REFCOUNTING(StartHost)
};

}  // namespace

int main(int argc, char** argv) {
  const long rounds = argc > 3 ? std::strtol(argv[3], nullptr, 10) : 0;
  if (argc < 5 || rounds < 1) {
    std::fputs("usage: BENCH_START_FOLDER=FOLDER bench_start_host LAUNCHER URL ROUNDS HELPER...\n",
               stderr);
    return 2;
  }
  const std::vector<std::string> helpers(argv + 4, argv + argc);
  const CefRefPtr<StartHost> client(new StartHost(helpers, argv[2], rounds));
  return RunOffScreenHost(argv, argv[1], [client] { client->OpenNext(); });
}
