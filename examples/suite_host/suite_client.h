#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "examples/suite_host/console_handler.h"
#include "examples/suite_host/options.h"
#include "examples/suite_host/pictures.h"
#include "examples/suite_host/screenshot.h"
#include "include/cef_client.h"

// The largest exit status that a page or a line of input can choose.
inline constexpr int kMaxExitCode = 255;

// Manages the browsers of the example: prints their events, runs the commands of their pages, and
// ends the message loop once an exit code is set and all browsers are closed. Main thread only.
class SuiteClient : public CefClient,
                    public ConsoleHandler,
                    public CefLifeSpanHandler,
                    public CefLoadHandler,
                    public CefRenderHandler,
                    public CefRequestHandler {
 public:
  explicit SuiteClient(const Options& options) : options_(options) {}

  // Calls `action` once, when the first browser has been created.
  void WhenReady(std::function<void()> action) { when_ready_ = std::move(action); }
  // Opens another browser. Prints an error event on failure. Has no effect after Quit().
  void Open(const std::string& url);
  // Loads a page in a browser. Loads the page once more if the renderer ends before the page is
  // loaded. Has no effect when the browser has closed.
  void Load(const CefRefPtr<CefBrowser>& browser, const std::string& url);
  // Returns null when no such browser is open.
  CefRefPtr<CefBrowser> FindBrowser(int identifier) const;
  // Returns an error message for an identifier that FindBrowser() does not find.
  std::string DescribeMissing(int identifier) const;
  // Requests a picture of the browser as a PNG file. Prints an event when the file has been written
  // or an error event when that failed. Returns false at once when the browser is a window.
  bool TakePicture(const CefRefPtr<CefBrowser>& browser, const std::string& path);
  // Prints an event, writes the requested pictures, closes all browsers and ends the message loop.
  // Does not wait for the pictures. Later calls have no effect.
  void Quit(int code);

  // Returns the exit status of the process. Valid once the message loop has ended.
  int exit_code() const { return exit_code_.value_or(0); }

  CefRefPtr<CefDisplayHandler> GetDisplayHandler() override { return this; }
  CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() override { return this; }
  CefRefPtr<CefLoadHandler> GetLoadHandler() override { return this; }
  CefRefPtr<CefRenderHandler> GetRenderHandler() override { return this; }
  CefRefPtr<CefRequestHandler> GetRequestHandler() override { return this; }

  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId source_process,
                                CefRefPtr<CefProcessMessage> message) override;
  // Branch 2987 calls this on the IO thread, so it may read only `options_`.
  bool OnBeforePopup(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                     const CefString& target_url, const CefString& target_frame_name,
                     CefLifeSpanHandler::WindowOpenDisposition target_disposition,
                     bool user_gesture, const CefPopupFeatures& popupFeatures,
                     CefWindowInfo& windowInfo, CefRefPtr<CefClient>& client,
                     CefBrowserSettings& settings, bool* no_javascript_access) override;
  void OnAfterCreated(CefRefPtr<CefBrowser> browser) override;
  void OnBeforeClose(CefRefPtr<CefBrowser> browser) override;
  void OnLoadEnd(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                 int httpStatusCode) override;
  void OnLoadError(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame, ErrorCode errorCode,
                   const CefString& errorText, const CefString& failedUrl) override;
  bool GetViewRect(CefRefPtr<CefBrowser> browser, CefRect& rect) override;
  void OnPaint(CefRefPtr<CefBrowser> browser, PaintElementType type, const RectList& dirtyRects,
               const void* buffer, int width, int height) override;
  void OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser, TerminationStatus status) override;

 private:
  struct Browser {
    CefRefPtr<CefBrowser> browser;
    std::string requested_url;  // requested by Load() and not loaded yet
    bool alive = true;          // its renderer has not ended
  };

  // Sets the size of a browser, and whether the browser is off-screen.
  void SetWindowInfo(CefWindowInfo& window) const;
  void RequestPicture(const CefRefPtr<CefBrowser>& browser, const std::string& path,
                      Pictures::Done done);
  void RequestLastPicture();
  // Fails the requests for pictures that were not painted, and closes all browsers. Takes effect
  // only once.
  void Finish();
  void FinishLater(int milliseconds);
  void CloseAll();
  void Loaded(const CefRefPtr<CefBrowser>& browser, const std::string& url, int status);
  bool AnyAlive() const;

  const Options options_;
  std::function<void()> when_ready_;  // null after its call
  std::map<int, Browser> browsers_;   // by identifier
  Pictures pictures_;
  Screenshot screenshot_;         // last paint of the first browser, in case it closes early
  std::optional<int> exit_code_;  // empty until Quit()
  bool waiting_for_pictures_ = false;

  IMPLEMENT_REFCOUNTING(SuiteClient)
};
