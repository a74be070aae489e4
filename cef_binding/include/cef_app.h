#pragma once

#include "include/cef_browser_process_handler.h"
#include "include/cef_command_line.h"
#include "include/cef_render_process_handler.h"

// Callbacks of CEF in every process. The application implements them.
class CefApp : public virtual CefBaseRefCounted {
 public:
  // Called in every process before Chromium reads the command line.
  virtual void OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                             CefRefPtr<CefCommandLine> /*command_line*/) {}
  virtual CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() { return nullptr; }
  virtual CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() { return nullptr; }
};

// CefExecuteProcess() and CefInitialize() first check that the loaded library is the one that this
// binding describes. Any other library ends the process with status 1 and a line on standard error.

// Runs a child process to its end and returns its exit code. Returns -1 at once in a browser
// process.
int CefExecuteProcess(const CefMainArgs& args, CefRefPtr<CefApp> application,
                      void* windows_sandbox_info);
// Initializes the browser process. Must be called on the main thread. Returns false on failure.
bool CefInitialize(const CefMainArgs& args, const CefSettings& settings,
                   CefRefPtr<CefApp> application, void* windows_sandbox_info);

// These must be called on the main thread of the browser process.
void CefShutdown();
void CefRunMessageLoop();
void CefQuitMessageLoop();
