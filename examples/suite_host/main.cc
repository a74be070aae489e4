#include <cstdlib>
#include <iostream>

#include "examples/suite_host/display.h"
#include "examples/suite_host/later.h"
#include "examples/suite_host/options.h"
#include "examples/suite_host/suite_client.h"
#include "include/cef_app.h"

namespace {

constexpr int kWrongUsage = 2;
constexpr int kTimeOut = 3;

// The application of the browser process: adds the switches, opens the first page.
class SuiteApp : public CefApp, public CefBrowserProcessHandler {
 public:
  SuiteApp(const Options& options, CefRefPtr<SuiteClient> client)
      : options_(options), client_(client) {}

  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override { return this; }

  void OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                     CefRefPtr<CefCommandLine> command_line) override {
    // Every child process is an execution of the helper then, as on macOS.
    if (!options_.zygote) command_line->AppendSwitch("no-zygote");
    for (const auto& [name, value] : options_.switches) {
      if (value.empty()) {
        command_line->AppendSwitch(name);
      } else {
        command_line->AppendSwitchWithValue(name, value);
      }
    }
  }

  void OnContextInitialized() override {
    client_->Open(options_.page);
    const CefRefPtr<SuiteClient> client = client_;
    RunLater(options_.timeout_seconds * 1000, [client] { client->Quit(kTimeOut); });
  }

 private:
  const Options options_;
  const CefRefPtr<SuiteClient> client_;

  IMPLEMENT_REFCOUNTING(SuiteApp)
};

void FillSettings(const Options& options, CefSettings& settings) {
  settings.no_sandbox = options.sandbox ? 0 : 1;
  settings.windowless_rendering_enabled = 1;
  settings.log_severity = LOGSEVERITY_DISABLE;
  CefString(&settings.browser_subprocess_path) = options.helper;
  CefString(&settings.resources_dir_path) = options.cef_dir;
  CefString(&settings.locales_dir_path) = options.cef_dir + "/locales";
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  std::string error;
  if (!ParseOptions(argc, argv, options, error)) {
    std::cerr << "suite_host: " << error << std::endl;
    return kWrongUsage;
  }

  if (!HasDisplay()) {
    std::cerr << "suite_host: cannot open the X display; xvfb-run lends one" << std::endl;
    return EXIT_FAILURE;
  }

  CefSettings settings;
  FillSettings(options, settings);
  // Chromium gets none of this program's own options.
  const CefMainArgs program_only(1, argv);
  const CefRefPtr<SuiteClient> client(new SuiteClient(options));
  if (!CefInitialize(program_only, settings, new SuiteApp(options, client), nullptr)) {
    std::cerr << "suite_host: CEF could not be initialised" << std::endl;
    return EXIT_FAILURE;
  }
  IgnoreDisplayErrors();
  CefRunMessageLoop();
  CefShutdown();
  return client->exit_code();
}
