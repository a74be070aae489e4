#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "bridge/array_packing.h"
#include "bridge/message_callbacks.h"
#include "include/cef_app.h"

// The one object that the helper gives to CEF: application, handler of the browser process and
// handler of the render process. CEF asks for the one that the process is. It also is the registry
// of the pages' message callbacks.
//
// Callbacks of the render process come on the renderer's main thread, those of the browser process
// on its UI thread. References are counted across all threads.
class CEFAppHandler : public CefApp,
                      public CefBrowserProcessHandler,
                      public CefRenderProcessHandler,
                      public MessageCallbacks {
 public:
  // `renderer_is_ready` is called once, on the main thread of a render process, when that thread
  // takes tasks; null for a caller that need not know. Arrays with fewer elements than `break_even`
  // are not packed.
  explicit CEFAppHandler(std::function<void()> renderer_is_ready = nullptr,
                         ArrayPacking::BreakEven break_even = {});

  // The same as ReadServiceConfig().
  static void readServiceConfig(std::map<std::string, std::string>& settings);

  // CefApp. Adds the same switches in every process type: they turn off pinch zooming, and pass on
  // the authentication settings of the service configuration.
  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override;
  // Both are this object.
  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override;
  CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() override;

  // CefBrowserProcessHandler. Names the schemes that may carry cookies.
  void OnContextInitialized() override;

  // CefRenderProcessHandler. Gives every page the object `app`.
  void OnWebKitInitialized() override;
  // Pages are neither left nor entered again by way of the history.
  bool OnBeforeNavigation(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                          CefRefPtr<CefRequest> request, NavigationType navigation_type,
                          bool is_redirect) override;
  void OnContextReleased(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                         CefRefPtr<CefV8Context> context) override;
  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId source_process,
                                CefRefPtr<CefProcessMessage> message) override;

 private:
  const std::vector<CefString> supportedSchemes;
  const std::function<void()> renderer_is_ready_;
  const ArrayPacking::BreakEven break_even_;

  IMPLEMENT_REFCOUNTING(CEFAppHandler)
};
