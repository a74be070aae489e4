#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "bridge/array_packing.h"
#include "bridge/message_callbacks.h"
#include "include/cef_app.h"

// The one object that the helper gives to CEF. It is the application, the handler of the browser
// process and the handler of the render process. CEF uses the handler that fits the process. It is
// also the registry of the pages' message callbacks. Native functions refer to the registry, which
// keeps the whole object alive.
//
// CEF calls the callbacks of the render process on the renderer's main thread, and those of the
// browser process on its UI thread. Any thread may add and release references.
class CEFAppHandler : public CefApp,
                      public CefBrowserProcessHandler,
                      public CefRenderProcessHandler,
                      public MessageCallbacks {
 public:
  // `on_renderer_ready` may be null. Otherwise it is called once, on the main thread of a render
  // process, when that thread accepts tasks. `break_even` holds the lowest numbers of elements, one
  // for each direction, for which the array of a message is packed.
  explicit CEFAppHandler(std::function<void()> on_renderer_ready = nullptr,
                         ArrayPacking::BreakEven break_even = {});

  // Does the same as ReadServiceConfig().
  static void readServiceConfig(std::map<std::string, std::string>& settings);

  // CefApp. Adds the same switches in every process type: one turns off pinch zooming, the others
  // pass on the authentication settings of the service configuration.
  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override;
  // Both return this object.
  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override;
  CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() override;

  // CefBrowserProcessHandler. Sets the schemes that support cookies.
  void OnContextInitialized() override;

  // CefRenderProcessHandler. Registers the extensions that convert arrays and add the object `app`
  // to every page.
  void OnWebKitInitialized() override;
  // Returns true, which cancels the navigation, for steps back and forward in the history.
  bool OnBeforeNavigation(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                          CefRefPtr<CefRequest> request, NavigationType navigation_type,
                          bool is_redirect) override;
  // Releases everything that is kept for `context`.
  void OnContextReleased(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                         CefRefPtr<CefV8Context> context) override;
  // Calls the page's callback for `message`. Returns whether the callback returned true.
  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId source_process,
                                CefRefPtr<CefProcessMessage> message) override;

 private:
  const std::vector<CefString> supportedSchemes;
  const std::function<void()> on_renderer_ready_;
  const ArrayPacking::BreakEven break_even_;

  IMPLEMENT_REFCOUNTING(CEFAppHandler)
};
