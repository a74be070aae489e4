#include <cstdlib>
#include <iostream>
#include <string>

#include "examples/suite_host/devtools.h"
#include "examples/suite_host/display.h"
#include "examples/suite_host/event_printer.h"
#include "examples/suite_host/input_commands.h"
#include "examples/suite_host/input_reader.h"
#include "examples/suite_host/installation.h"
#include "examples/suite_host/later.h"
#include "examples/suite_host/options.h"
#include "examples/suite_host/suite_app.h"
#include "examples/suite_host/suite_client.h"

namespace {

constexpr int kWrongUsage = 2;
constexpr int kTimeOut = 3;

int Fail(int status, const std::string& error) {
  std::cerr << "suite_host: " << error << std::endl;
  return status;
}

void FillSettings(const Options& options, const Installation& installation, int devtools_port,
                  CefSettings& settings) {
  settings.no_sandbox = options.sandbox ? 0 : 1;
  settings.windowless_rendering_enabled = 1;
  settings.log_severity = LOGSEVERITY_DISABLE;
  settings.remote_debugging_port = devtools_port;  // 0: none
  CefString(&settings.browser_subprocess_path) = installation.helper;
  CefString(&settings.resources_dir_path) = installation.cef_folder;
  CefString(&settings.locales_dir_path) = installation.cef_folder + "/locales";
}

// Returns the exit status.
int RunBrowser(char** argv, const Options& options, const Installation& installation,
               DevtoolsPort& devtools) {
  const CefRefPtr<SuiteClient> client(new SuiteClient(options));
  InputReader input({[client](const InputLine& line) { RunInputCommand(*client, line); },
                     [](const std::string& error) { PrintError(error); }});
  // Starts the input late, because commands need a browser.
  if (options.read_input) client->WhenReady([&input] { input.Start(); });
  const auto start = [&options, &devtools, client] {
    if (options.devtools_port) devtools.AnnounceWhenOpen();
    client->Open(options.page);
    if (options.timeout_seconds == 0) return;
    RunLater(options.timeout_seconds * 1000, [client] { client->Quit(kTimeOut); });
  };

  CefSettings settings;
  FillSettings(options, installation, devtools.number(), settings);
  // Keeps this program's options from Chromium.
  const CefMainArgs program_only(1, argv);
  if (!CefInitialize(program_only, settings, new SuiteApp(options, start), nullptr)) {
    return Fail(EXIT_FAILURE, "CEF could not be initialised");
  }
  IgnoreDisplayErrors();
  CefRunMessageLoop();
  input.Stop();
  CefShutdown();
  return client->exit_code();
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  std::string error;
  if (!ParseOptions(argc, argv, options, error)) return Fail(kWrongUsage, error);
  if (options.help || options.version) {
    std::cout << (options.help ? HelpText() : "suite_host " SUITE_HOST_VERSION "\n") << std::flush;
    return std::cout ? EXIT_SUCCESS : EXIT_FAILURE;
  }

  Installation installation;
  if (!FindInstallation(options, installation, error)) return Fail(EXIT_FAILURE, error);
  DevtoolsPort devtools;
  if (options.devtools_port && !devtools.Reserve(*options.devtools_port, error)) {
    return Fail(EXIT_FAILURE, error);
  }
  if (!HasDisplay()) {
    return Fail(EXIT_FAILURE, "cannot open the X display; xvfb-run provides one");
  }
  return RunBrowser(argv, options, installation, devtools);
}
