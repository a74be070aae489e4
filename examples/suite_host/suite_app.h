#pragma once

#include <functional>

#include "examples/suite_host/options.h"
#include "include/cef_app.h"

// The application of the browser process: adds the switches to the command line.
class SuiteApp : public CefApp, public CefBrowserProcessHandler {
 public:
  // `start` is called on the main thread when browsers can be opened.
  SuiteApp(const Options& options, std::function<void()> start);

  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override { return this; }
  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override;
  void OnContextInitialized() override { start_(); }

 private:
  const Options options_;
  const std::function<void()> start_;

  IMPLEMENT_REFCOUNTING(SuiteApp)
};
