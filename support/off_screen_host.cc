#include "support/off_screen_host.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "include/cef_app.h"

namespace {

constexpr int kRendererGone = 4;

class OffScreenApp : public CefApp, public CefBrowserProcessHandler {
 public:
  explicit OffScreenApp(std::function<void()> start) : start_(std::move(start)) {}

  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override { return this; }

  void OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                     CefRefPtr<CefCommandLine> command_line) override {
    // Executes the helper once for each renderer, and starts no other child processes.
    for (const char* name : {"no-zygote", "disable-gpu", "disable-gpu-compositing"}) {
      command_line->AppendSwitch(name);
    }
  }

  void OnContextInitialized() override { start_(); }

 private:
  const std::function<void()> start_;

  IMPLEMENT_REFCOUNTING(OffScreenApp)
};

// Returns the absolute path of the folder with the library's files: ../CEF, relative to the folder
// of this program.
std::string CefFolder() {
  char* resolved = realpath("/proc/self/exe", nullptr);
  const std::string executable = resolved ? resolved : "";
  std::free(resolved);
  const std::string folder = executable.substr(0, executable.rfind('/'));
  return folder.substr(0, folder.rfind('/')) + "/CEF";
}

}  // namespace

void OffScreenClient::Open(const std::string& url) {
  CefWindowInfo window;
  window.windowless_rendering_enabled = 1;
  const CefBrowserSettings settings;
  CefBrowserHost::CreateBrowser(window, this, url, settings, nullptr);
}

bool OffScreenClient::GetViewRect(CefRefPtr<CefBrowser> /*browser*/, CefRect& rect) {
  rect = CefRect(0, 0, 200, 100);
  return true;
}

void OffScreenClient::OnRenderProcessTerminated(CefRefPtr<CefBrowser> /*browser*/,
                                                TerminationStatus status) {
  std::fprintf(stderr, "a renderer ended with termination status %d\n", status);
  std::exit(kRendererGone);
}

int RunOffScreenHost(char** argv, const std::string& helper, std::function<void()> start) {
  const std::string cef_folder = CefFolder();
  CefSettings settings;
  settings.no_sandbox = 1;
  settings.windowless_rendering_enabled = 1;
  settings.log_severity = LOGSEVERITY_DISABLE;
  CefString(&settings.browser_subprocess_path) = helper;
  CefString(&settings.resources_dir_path) = cef_folder;
  CefString(&settings.locales_dir_path) = cef_folder + "/locales";

  // Keeps the program's own arguments from Chromium.
  const CefMainArgs program_only(1, argv);
  if (!CefInitialize(program_only, settings, new OffScreenApp(std::move(start)), nullptr)) {
    std::fputs("CEF could not be initialised\n", stderr);
    return EXIT_FAILURE;
  }
  CefRunMessageLoop();
  CefShutdown();
  return EXIT_SUCCESS;
}
