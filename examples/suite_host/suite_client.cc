#include "examples/suite_host/suite_client.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "examples/suite_host/event_printer.h"
#include "examples/suite_host/later.h"
#include "examples/suite_host/page_commands.h"
#include "include/cef_app.h"

namespace {

constexpr int kFirstBrowser = 1;
constexpr int kRendererGone = 4;
constexpr int kPaintWaitMilliseconds = 10000;
// CEF paints a frame that a page has drawn some frames later, at 30 frames a second, and does not
// report when.
constexpr int kFrameWaitMilliseconds = 200;

// The page that Chromium shows in place of a page that could not be loaded.
constexpr char kErrorPage[] = "data:text/html,chromewebdata";

void LoadInMainFrame(const CefRefPtr<CefBrowser>& browser, const std::string& url) {
  if (const CefRefPtr<CefFrame> frame = browser->GetMainFrame()) frame->LoadURL(url);
}

}  // namespace

void SuiteClient::Open(const std::string& url) {
  if (exit_code_) return;
  CefWindowInfo window;
  SetWindowInfo(window);
  const CefBrowserSettings settings;
  if (!CefBrowserHost::CreateBrowser(window, this, url, settings, nullptr)) {
    PrintError("CEF cannot open a browser for " + url);
  }
}

void SuiteClient::SetWindowInfo(CefWindowInfo& window) const {
  window.windowless_rendering_enabled = options_.window ? 0 : 1;
  window.width = static_cast<unsigned int>(options_.width);
  window.height = static_cast<unsigned int>(options_.height);
}

void SuiteClient::Load(const CefRefPtr<CefBrowser>& browser, const std::string& url) {
  const auto found = browsers_.find(browser->GetIdentifier());
  if (found == browsers_.end()) return;  // it has closed since the request
  found->second.requested_url = url;
  LoadInMainFrame(browser, url);
}

CefRefPtr<CefBrowser> SuiteClient::FindBrowser(int identifier) const {
  const auto found = browsers_.find(identifier);
  return found == browsers_.end() ? nullptr : found->second.browser;
}

std::string SuiteClient::DescribeMissing(int identifier) const {
  std::string open;
  for (const auto& [number, entry] : browsers_)
    open += (open.empty() ? "" : ", ") + std::to_string(number);
  return "there is no browser " + std::to_string(identifier) + ", only " + open;
}

bool SuiteClient::TakePicture(const CefRefPtr<CefBrowser>& browser, const std::string& path) {
  const CefRefPtr<CefBrowserHost> host = browser->GetHost();
  if (!host || !host->IsWindowRenderingDisabled()) return false;
  const int identifier = browser->GetIdentifier();
  RequestPicture(browser, path, [identifier, path](const std::string& error) {
    if (error.empty()) {
      PrintScreenshot(identifier, path);
    } else {
      PrintError("cannot write the picture " + path + ": " + error);
    }
  });
  return true;
}

void SuiteClient::RequestPicture(const CefRefPtr<CefBrowser>& browser, const std::string& path,
                                 Pictures::Done done) {
  const int number = pictures_.Request(browser->GetIdentifier(), path, std::move(done));
  const CefRefPtr<SuiteClient> self(this);
  RunLater(kFrameWaitMilliseconds, [self, browser, number] {
    self->pictures_.Arm(number);
    if (const CefRefPtr<CefBrowserHost> host = browser->GetHost()) host->Invalidate(PET_VIEW);
  });
}

void SuiteClient::Quit(int code) {
  if (exit_code_) return;
  exit_code_ = code;
  PrintQuit(code);
  waiting_for_pictures_ = true;
  if (!options_.screenshot.empty()) RequestLastPicture();
  if (pictures_.empty()) {
    Finish();
  } else {
    FinishLater(kPaintWaitMilliseconds);
  }
}

void SuiteClient::RequestLastPicture() {
  const auto done = [this](const std::string& paint_error) {
    std::string error;
    if (paint_error.empty() || screenshot_.Write(options_.screenshot, error)) return;
    std::cerr << "suite_host: cannot write the picture " << options_.screenshot << ": " << error
              << std::endl;
  };
  if (const CefRefPtr<CefBrowser> first = FindBrowser(kFirstBrowser)) {
    RequestPicture(first, options_.screenshot, done);
  } else {
    done("the browser has closed");
  }
}

void SuiteClient::FinishLater(int milliseconds) {
  const CefRefPtr<SuiteClient> self(this);
  RunLater(milliseconds, [self] { self->Finish(); });
}

void SuiteClient::Finish() {
  if (!std::exchange(waiting_for_pictures_, false)) return;
  pictures_.DropAll();
  CloseAll();
}

void SuiteClient::CloseAll() {
  if (browsers_.empty()) CefQuitMessageLoop();
  const auto browsers = browsers_;  // closing changes the map
  for (const auto& [identifier, entry] : browsers) {
    if (const CefRefPtr<CefBrowserHost> host = entry.browser->GetHost()) host->CloseBrowser(true);
  }
}

bool SuiteClient::AnyAlive() const {
  return std::any_of(browsers_.begin(), browsers_.end(),
                     [](const auto& entry) { return entry.second.alive; });
}

bool SuiteClient::OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                           CefProcessId /*source_process*/,
                                           CefRefPtr<CefProcessMessage> message) {
  const std::string name = message->GetName().ToString();
  const CefRefPtr<CefListValue> arguments = message->GetArgumentList();
  PrintMessage(browser->GetIdentifier(), name, arguments);
  if (arguments) RunPageCommand(*this, browser, name, arguments);
  return true;
}

bool SuiteClient::OnBeforePopup(CefRefPtr<CefBrowser> /*browser*/, CefRefPtr<CefFrame> /*frame*/,
                                const CefString& /*target_url*/,
                                const CefString& /*target_frame_name*/,
                                CefLifeSpanHandler::WindowOpenDisposition /*target_disposition*/,
                                bool /*user_gesture*/, const CefPopupFeatures& /*popupFeatures*/,
                                CefWindowInfo& windowInfo, CefRefPtr<CefClient>& /*client*/,
                                CefBrowserSettings& /*settings*/, bool* /*no_javascript_access*/) {
  SetWindowInfo(windowInfo);
  return false;
}

void SuiteClient::OnAfterCreated(CefRefPtr<CefBrowser> browser) {
  browsers_[browser->GetIdentifier()].browser = browser;
  if (!options_.window && browser->IsPopup()) {
    // CEF paints an off-screen popup only after a resize. Other browsers are not resized: a resize
    // while the renderer draws can, rarely, stop its animation frames.
    if (const CefRefPtr<CefBrowserHost> host = browser->GetHost()) host->WasResized();
  }
  if (when_ready_) std::exchange(when_ready_, nullptr)();
  if (!exit_code_) return;
  // The browser was requested before Quit() and created too late to be closed with the others.
  const CefRefPtr<SuiteClient> self(this);
  RunLater(0, [self] { self->CloseAll(); });
}

void SuiteClient::OnBeforeClose(CefRefPtr<CefBrowser> browser) {
  browsers_.erase(browser->GetIdentifier());
  pictures_.Drop(browser->GetIdentifier());
  if (browsers_.empty() && exit_code_) {
    CefQuitMessageLoop();
  } else if (browsers_.empty()) {
    Quit(0);  // the pages have closed themselves
  } else if (!AnyAlive()) {
    Quit(kRendererGone);
  }
}

void SuiteClient::OnLoadEnd(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                            int httpStatusCode) {
  if (frame->IsMain()) Loaded(browser, frame->GetURL().ToString(), httpStatusCode);
}

void SuiteClient::OnLoadError(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                              ErrorCode errorCode, const CefString& /*errorText*/,
                              const CefString& failedUrl) {
  if (frame->IsMain()) Loaded(browser, failedUrl.ToString(), errorCode);
}

void SuiteClient::Loaded(const CefRefPtr<CefBrowser>& browser, const std::string& url, int status) {
  const auto found = browsers_.find(browser->GetIdentifier());
  if (found == browsers_.end()) return;
  Browser& entry = found->second;
  entry.alive = true;
  // A page can request another page before its own load ends, which must not clear the request.
  if (url == entry.requested_url) entry.requested_url.clear();
  if (url != kErrorPage) PrintLoad(browser->GetIdentifier(), url, status);
}

bool SuiteClient::GetViewRect(CefRefPtr<CefBrowser> /*browser*/, CefRect& rect) {
  rect = CefRect(0, 0, options_.width, options_.height);
  return true;
}

void SuiteClient::OnPaint(CefRefPtr<CefBrowser> browser, PaintElementType type,
                          const RectList& /*dirtyRects*/, const void* buffer, int width,
                          int height) {
  if (type != PET_VIEW) return;
  const int identifier = browser->GetIdentifier();
  pictures_.Paint(identifier, buffer, width, height);
  if (!options_.screenshot.empty() && identifier == kFirstBrowser) {
    screenshot_.Take(buffer, width, height);
  }
  // CEF does not allow a browser to close while it paints.
  if (waiting_for_pictures_ && pictures_.empty()) FinishLater(0);
}

void SuiteClient::OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser,
                                            TerminationStatus status) {
  PrintGone(browser->GetIdentifier(), status);
  const auto found = browsers_.find(browser->GetIdentifier());
  if (found == browsers_.end()) return;
  Browser& entry = found->second;
  entry.alive = false;
  if (!entry.requested_url.empty()) {
    LoadInMainFrame(browser, std::exchange(entry.requested_url, std::string()));
  } else if (!AnyAlive()) {
    Quit(kRendererGone);
  }
}
