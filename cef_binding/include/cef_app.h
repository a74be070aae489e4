#pragma once

#include "include/cef_browser_process_handler.h"
#include "include/cef_command_line.h"
#include "include/cef_render_process_handler.h"

// The application as CEF sees it, in every process. Implemented by us.
class CefApp : public virtual CefBaseRefCounted {
 public:
  // Called in every process before Chromium reads its command line.
  virtual void OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                             CefRefPtr<CefCommandLine> /*command_line*/) {}
  virtual CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() { return nullptr; }
  virtual CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() { return nullptr; }
};

// These two check first that the loaded library is the one whose slots are bound here. Another one
// ends the process with status 1 and a line on standard error.

// Runs a child process to its end and returns its exit code, or -1 at once in a browser process.
int CefExecuteProcess(const CefMainArgs& args, CefRefPtr<CefApp> application,
                      void* windows_sandbox_info);
// Sets the browser process up, on its main thread.
bool CefInitialize(const CefMainArgs& args, const CefSettings& settings,
                   CefRefPtr<CefApp> application, void* windows_sandbox_info);

// Browser process, main thread.
void CefShutdown();
void CefRunMessageLoop();
void CefQuitMessageLoop();
