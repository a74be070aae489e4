#include "examples/suite_host/suite_app.h"

#include <utility>

SuiteApp::SuiteApp(const Options& options, std::function<void()> start)
    : options_(options), start_(std::move(start)) {}

void SuiteApp::OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                             CefRefPtr<CefCommandLine> command_line) {
  // Without a zygote, every child process executes the helper, as on macOS.
  if (!options_.zygote) command_line->AppendSwitch("no-zygote");
  for (const auto& [name, value] : options_.switches) {
    if (value.empty()) {
      command_line->AppendSwitch(name);
    } else {
      command_line->AppendSwitchWithValue(name, value);
    }
  }
}
