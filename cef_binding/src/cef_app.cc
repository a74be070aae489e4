#include "include/cef_app.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "client_object.h"

using cef_binding::Adopt;
using cef_binding::ClientObject;

namespace {

// The library of branch 2987 for Linux x86-64. With another hash the order of the slots differs.
constexpr char kApiHash[] = "1f9f9e15bf7cf13de2557ddd411dfc9f694503b0";

void RequireBoundLibrary() {
  const char* hash = cef_api_hash(0);
  if (hash && std::strcmp(hash, kApiHash) == 0) return;
  std::fprintf(stderr,
               "libcef.so is not the CEF library of branch 2987: its API hash is %s, expected %s\n",
               hash ? hash : "missing", kApiHash);
  std::exit(EXIT_FAILURE);
}

using BrowserProcessObject = ClientObject<CefBrowserProcessHandler, cef_browser_process_handler_t>;
using RenderProcessObject = ClientObject<CefRenderProcessHandler, cef_render_process_handler_t>;
using AppObject = ClientObject<CefApp, cef_app_t>;

void FillBrowserProcessHandler(cef_browser_process_handler_t& slots) {
  slots.on_context_initialized = [](cef_browser_process_handler_t* self) {
    BrowserProcessObject::Of(self).OnContextInitialized();
  };
}

void FillRenderProcessHandler(cef_render_process_handler_t& slots) {
  using Self = cef_render_process_handler_t*;
  slots.on_web_kit_initialized = [](Self self) {
    RenderProcessObject::Of(self).OnWebKitInitialized();
  };
  slots.on_before_navigation = [](Self self, cef_browser_t* browser, cef_frame_t* frame,
                                  cef_request_t* request, cef_navigation_type_t navigation_type,
                                  int is_redirect) {
    return RenderProcessObject::Of(self).OnBeforeNavigation(
               Adopt<CefBrowser>(browser), Adopt<CefFrame>(frame), Adopt<CefRequest>(request),
               navigation_type, is_redirect != 0)
               ? 1
               : 0;
  };
  slots.on_context_released = [](Self self, cef_browser_t* browser, cef_frame_t* frame,
                                 cef_v8context_t* context) {
    RenderProcessObject::Of(self).OnContextReleased(
        Adopt<CefBrowser>(browser), Adopt<CefFrame>(frame), Adopt<CefV8Context>(context));
  };
  slots.on_process_message_received = [](Self self, cef_browser_t* browser,
                                         cef_process_id_t source_process,
                                         cef_process_message_t* message) {
    return RenderProcessObject::Of(self).OnProcessMessageReceived(
               Adopt<CefBrowser>(browser), source_process, Adopt<CefProcessMessage>(message))
               ? 1
               : 0;
  };
}

void FillApp(cef_app_t& slots) {
  slots.on_before_command_line_processing = [](cef_app_t* self, const cef_string_t* process_type,
                                               cef_command_line_t* command_line) {
    AppObject::Of(self).OnBeforeCommandLineProcessing(CefString(process_type),
                                                      Adopt<CefCommandLine>(command_line));
  };
  slots.get_browser_process_handler = [](cef_app_t* self) {
    return BrowserProcessObject::Wrap(AppObject::Of(self).GetBrowserProcessHandler(),
                                      FillBrowserProcessHandler);
  };
  slots.get_render_process_handler = [](cef_app_t* self) {
    return RenderProcessObject::Wrap(AppObject::Of(self).GetRenderProcessHandler(),
                                     FillRenderProcessHandler);
  };
}

}  // namespace

int CefExecuteProcess(const CefMainArgs& args, CefRefPtr<CefApp> application,
                      void* windows_sandbox_info) {
  RequireBoundLibrary();
  return cef_execute_process(&args, AppObject::Wrap(application, FillApp), windows_sandbox_info);
}

bool CefInitialize(const CefMainArgs& args, const CefSettings& settings,
                   CefRefPtr<CefApp> application, void* windows_sandbox_info) {
  RequireBoundLibrary();
  return cef_initialize(&args, &settings, AppObject::Wrap(application, FillApp),
                        windows_sandbox_info) != 0;
}

void CefShutdown() { cef_shutdown(); }
void CefRunMessageLoop() { cef_run_message_loop(); }
void CefQuitMessageLoop() { cef_quit_message_loop(); }
