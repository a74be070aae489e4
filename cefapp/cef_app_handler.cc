#include "cefapp/cef_app_handler.h"

#include "bridge/app_extension.h"
#include "include/cef_cookie.h"
#include "include/wrapper/cef_helpers.h"

CEFAppHandler::CEFAppHandler() : supportedSchemes{"http", "https"} {}

void CEFAppHandler::OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                                  CefRefPtr<CefCommandLine> command_line) {
  command_line->AppendSwitch("disable-pinch");
}

CefRefPtr<CefBrowserProcessHandler> CEFAppHandler::GetBrowserProcessHandler() { return this; }

CefRefPtr<CefRenderProcessHandler> CEFAppHandler::GetRenderProcessHandler() { return this; }

void CEFAppHandler::OnContextInitialized() {
  CefCookieManager::GetGlobalManager(nullptr)->SetSupportedSchemes(supportedSchemes, nullptr);
}

void CEFAppHandler::OnWebKitInitialized() {
  CEF_REQUIRE_RENDERER_THREAD();
  RegisterAppExtension(this);
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
