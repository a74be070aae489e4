#pragma once

#include <functional>
#include <string>

#include "include/cef_client.h"

// An off-screen browser for measurements, which neither keeps nor prints its pictures.

// Handles the callbacks of every browser in a measurement. Main thread only.
class OffScreenClient : public CefClient,
                        public CefDisplayHandler,
                        public CefLifeSpanHandler,
                        public CefRenderHandler,
                        public CefRequestHandler {
 public:
  // Opens another browser. Ignores failures.
  void Open(const std::string& url);

  CefRefPtr<CefDisplayHandler> GetDisplayHandler() override { return this; }
  CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() override { return this; }
  CefRefPtr<CefRenderHandler> GetRenderHandler() override { return this; }
  CefRefPtr<CefRequestHandler> GetRequestHandler() override { return this; }

  bool GetViewRect(CefRefPtr<CefBrowser> browser, CefRect& rect) override;
  void OnPaint(CefRefPtr<CefBrowser> /*browser*/, PaintElementType /*type*/,
               const RectList& /*dirtyRects*/, const void* /*buffer*/, int /*width*/,
               int /*height*/) override {}
  // Ends the program with status 4, because the measurement is useless.
  void OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser, TerminationStatus status) override;
};

// Runs a browser process until CefQuitMessageLoop(), with the executable `helper` for its child
// processes. CEF's resources must be in ../CEF, relative to the folder of the program. Chromium
// receives only argv[0]. Calls `start` once, on the main thread, when browsers can be opened.
// Returns the exit status: 0, or 1, with a line on standard error, when CEF cannot be initialized.
int RunOffScreenHost(char** argv, const std::string& helper, std::function<void()> start);
