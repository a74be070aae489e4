#include "include/cef_app.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "client_object.h"

using cef_binding::Adopt;
using cef_binding::ClientObject;
using cef_binding::Rejected;

namespace {

// The hash of branch 2987 for Linux x86-64. A library with another hash orders its slots otherwise.
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

// The functions behind the slots. Each takes over the references that it is passed, even if it
// rejects the call. `process_type` may be null.

void OnContextInitialized(cef_browser_process_handler_t* self) {
  if (Rejected(self)) return;
  BrowserProcessObject::Of(self).OnContextInitialized();
}

void OnWebKitInitialized(cef_render_process_handler_t* self) {
  if (Rejected(self)) return;
  RenderProcessObject::Of(self).OnWebKitInitialized();
}

int OnBeforeNavigation(cef_render_process_handler_t* self, cef_browser_t* browser_in,
                       cef_frame_t* frame_in, cef_request_t* request_in,
                       cef_navigation_type_t navigation_type, int is_redirect) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  const auto frame = Adopt<CefFrame>(frame_in);
  const auto request = Adopt<CefRequest>(request_in);
  if (Rejected(self) || Rejected(browser) || Rejected(frame) || Rejected(request)) return 0;
  return RenderProcessObject::Of(self).OnBeforeNavigation(browser, frame, request, navigation_type,
                                                          is_redirect != 0)
             ? 1
             : 0;
}

void OnContextReleased(cef_render_process_handler_t* self, cef_browser_t* browser_in,
                       cef_frame_t* frame_in, cef_v8context_t* context_in) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  const auto frame = Adopt<CefFrame>(frame_in);
  const auto context = Adopt<CefV8Context>(context_in);
  if (Rejected(self) || Rejected(browser) || Rejected(frame) || Rejected(context)) return;
  RenderProcessObject::Of(self).OnContextReleased(browser, frame, context);
}

int OnProcessMessageReceived(cef_render_process_handler_t* self, cef_browser_t* browser_in,
                             cef_process_id_t source_process, cef_process_message_t* message_in) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  const auto message = Adopt<CefProcessMessage>(message_in);
  if (Rejected(self) || Rejected(browser) || Rejected(message)) return 0;
  return RenderProcessObject::Of(self).OnProcessMessageReceived(browser, source_process, message)
             ? 1
             : 0;
}

void FillBrowserProcessHandler(cef_browser_process_handler_t& slots) {
  slots.on_context_initialized = OnContextInitialized;
}

void FillRenderProcessHandler(cef_render_process_handler_t& slots) {
  slots.on_web_kit_initialized = OnWebKitInitialized;
  slots.on_before_navigation = OnBeforeNavigation;
  slots.on_context_released = OnContextReleased;
  slots.on_process_message_received = OnProcessMessageReceived;
}

void OnBeforeCommandLineProcessing(cef_app_t* self, const cef_string_t* process_type,
                                   cef_command_line_t* command_line_in) {
  const auto command_line = Adopt<CefCommandLine>(command_line_in);
  if (Rejected(self) || Rejected(command_line)) return;
  AppObject::Of(self).OnBeforeCommandLineProcessing(CefString(process_type), command_line);
}

cef_browser_process_handler_t* GetBrowserProcessHandler(cef_app_t* self) {
  if (Rejected(self)) return nullptr;
  return BrowserProcessObject::Wrap(AppObject::Of(self).GetBrowserProcessHandler(),
                                    FillBrowserProcessHandler);
}

cef_render_process_handler_t* GetRenderProcessHandler(cef_app_t* self) {
  if (Rejected(self)) return nullptr;
  return RenderProcessObject::Wrap(AppObject::Of(self).GetRenderProcessHandler(),
                                   FillRenderProcessHandler);
}

void FillApp(cef_app_t& slots) {
  slots.on_before_command_line_processing = OnBeforeCommandLineProcessing;
  slots.get_browser_process_handler = GetBrowserProcessHandler;
  slots.get_render_process_handler = GetRenderProcessHandler;
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
