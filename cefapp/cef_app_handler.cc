#include "cefapp/cef_app_handler.h"

#include <utility>

#include "bridge/app_extension.h"
#include "cefapp/service_config.h"
#include "include/cef_cookie.h"
#include "include/wrapper/cef_helpers.h"

CEFAppHandler::CEFAppHandler(std::function<void()> on_renderer_ready,
                             ArrayPacking::BreakEven break_even)
    : supportedSchemes{"http", "https"},
      on_renderer_ready_(std::move(on_renderer_ready)),
      break_even_(break_even) {}

void CEFAppHandler::readServiceConfig(std::map<std::string, std::string>& settings) {
  ReadServiceConfig(settings);
}

void CEFAppHandler::OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                                  CefRefPtr<CefCommandLine> command_line) {
  command_line->AppendSwitch("disable-pinch");
  ServiceSettings settings;
  readServiceConfig(settings);
  AppendServiceSwitches(settings, command_line);
}

CefRefPtr<CefBrowserProcessHandler> CEFAppHandler::GetBrowserProcessHandler() { return this; }

CefRefPtr<CefRenderProcessHandler> CEFAppHandler::GetRenderProcessHandler() { return this; }

void CEFAppHandler::OnContextInitialized() {
  CefCookieManager::GetGlobalManager(nullptr)->SetSupportedSchemes(supportedSchemes, nullptr);
}

void CEFAppHandler::OnWebKitInitialized() {
  CEF_REQUIRE_RENDERER_THREAD();
  // Its script must run before the scripts of pages, but does not need `app`.
  packing_ = ArrayPacking::Register(break_even_);
  RegisterAppExtension(this, packing_);
  if (on_renderer_ready_) on_renderer_ready_();
}

bool CEFAppHandler::OnBeforeNavigation(CefRefPtr<CefBrowser> /*browser*/,
                                       CefRefPtr<CefFrame> /*frame*/,
                                       CefRefPtr<CefRequest> /*request*/,
                                       NavigationType navigation_type, bool /*is_redirect*/) {
  return navigation_type == NAVIGATION_BACK_FORWARD;
}

void CEFAppHandler::OnContextReleased(CefRefPtr<CefBrowser> /*browser*/,
                                      CefRefPtr<CefFrame> /*frame*/,
                                      CefRefPtr<CefV8Context> context) {
  RemoveCallbacksOf(context);
}

bool CEFAppHandler::OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                             CefProcessId /*source_process*/,
                                             CefRefPtr<CefProcessMessage> message) {
  return DispatchMessage(browser, message);
}
