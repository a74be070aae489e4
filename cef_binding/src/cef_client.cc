#include "include/cef_client.h"

#include <utility>

#include "client_object.h"
#include "include/capi/cef_client_capi.h"

using cef_binding::Adopt;
using cef_binding::ClientObject;
using cef_binding::Rejected;

namespace {

using DisplayObject = ClientObject<CefDisplayHandler, cef_display_handler_t>;
using LifeSpanObject = ClientObject<CefLifeSpanHandler, cef_life_span_handler_t>;
using LoadObject = ClientObject<CefLoadHandler, cef_load_handler_t>;
using RenderObject = ClientObject<CefRenderHandler, cef_render_handler_t>;
using RequestObject = ClientObject<CefRequestHandler, cef_request_handler_t>;
using ClientHandlers = ClientObject<CefClient, cef_client_t>;

// The functions behind the slots. Each takes over the references that it is passed, even if it
// rejects the call. `message`, `source`, `error_text`, `target_url` and `target_frame_name` may be
// null.

int OnConsoleMessage(cef_display_handler_t* self, cef_browser_t* browser_in,
                     const cef_string_t* message, const cef_string_t* source, int line) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  if (Rejected(self) || Rejected(browser)) return 0;
  return DisplayObject::Of(self).OnConsoleMessage(browser, CefString(message), CefString(source),
                                                  line)
             ? 1
             : 0;
}

void FillClient(cef_client_t& slots);

// Swaps `settings`, because it owns strings. The library takes over a reference to `*client_inout`
// only if the pointer has changed.
int OnBeforePopup(cef_life_span_handler_t* self, cef_browser_t* browser_in, cef_frame_t* frame_in,
                  const cef_string_t* target_url, const cef_string_t* target_frame_name,
                  cef_window_open_disposition_t target_disposition, int user_gesture,
                  const cef_popup_features_t* popup_features, cef_window_info_t* window_info,
                  cef_client_t** client_inout, cef_browser_settings_t* settings,
                  int* no_javascript_access) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  const auto frame = Adopt<CefFrame>(frame_in);
  const auto old_client = client_inout ? ClientHandlers::Unwrap(*client_inout) : nullptr;
  if (Rejected(self) || Rejected(browser) || Rejected(frame) || Rejected(popup_features) ||
      Rejected(window_info) || Rejected(client_inout) || Rejected(settings) ||
      Rejected(no_javascript_access)) {
    return 0;
  }
  CefWindowInfo window(*window_info);
  CefRefPtr<CefClient> client = old_client;
  CefBrowserSettings popup_settings;
  std::swap<cef_browser_settings_t>(popup_settings, *settings);
  bool no_access = *no_javascript_access != 0;
  const bool canceled = LifeSpanObject::Of(self).OnBeforePopup(
      browser, frame, CefString(target_url), CefString(target_frame_name), target_disposition,
      user_gesture != 0, *popup_features, window, client, popup_settings, &no_access);
  *window_info = window;
  if (client != old_client) *client_inout = ClientHandlers::Wrap(client, FillClient);
  std::swap<cef_browser_settings_t>(popup_settings, *settings);
  *no_javascript_access = no_access ? 1 : 0;
  return canceled ? 1 : 0;
}

void OnAfterCreated(cef_life_span_handler_t* self, cef_browser_t* browser_in) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  if (Rejected(self) || Rejected(browser)) return;
  LifeSpanObject::Of(self).OnAfterCreated(browser);
}

void OnBeforeClose(cef_life_span_handler_t* self, cef_browser_t* browser_in) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  if (Rejected(self) || Rejected(browser)) return;
  LifeSpanObject::Of(self).OnBeforeClose(browser);
}

void OnLoadEnd(cef_load_handler_t* self, cef_browser_t* browser_in, cef_frame_t* frame_in,
               int http_status_code) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  const auto frame = Adopt<CefFrame>(frame_in);
  if (Rejected(self) || Rejected(browser) || Rejected(frame)) return;
  LoadObject::Of(self).OnLoadEnd(browser, frame, http_status_code);
}

void OnLoadError(cef_load_handler_t* self, cef_browser_t* browser_in, cef_frame_t* frame_in,
                 cef_errorcode_t error_code, const cef_string_t* error_text,
                 const cef_string_t* failed_url) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  const auto frame = Adopt<CefFrame>(frame_in);
  if (Rejected(self) || Rejected(browser) || Rejected(frame) || Rejected(failed_url)) return;
  LoadObject::Of(self).OnLoadError(browser, frame, error_code, CefString(error_text),
                                   CefString(failed_url));
}

int GetViewRect(cef_render_handler_t* self, cef_browser_t* browser_in, cef_rect_t* rect) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  if (Rejected(self) || Rejected(browser) || Rejected(rect)) return 0;
  CefRect view(*rect);
  const bool known = RenderObject::Of(self).GetViewRect(browser, view);
  if (known) *rect = view;
  return known ? 1 : 0;
}

void OnPaint(cef_render_handler_t* self, cef_browser_t* browser_in, cef_paint_element_type_t type,
             std::size_t dirty_rects_count, const cef_rect_t* dirty_rects, const void* buffer,
             int width, int height) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  if (Rejected(self) || Rejected(browser) || (dirty_rects_count > 0 && Rejected(dirty_rects)) ||
      Rejected(buffer)) {
    return;
  }
  RenderObject::Of(self).OnPaint(
      browser, type, CefRenderHandler::RectList(dirty_rects, dirty_rects + dirty_rects_count),
      buffer, width, height);
}

void OnRenderProcessTerminated(cef_request_handler_t* self, cef_browser_t* browser_in,
                               cef_termination_status_t status) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  if (Rejected(self) || Rejected(browser)) return;
  RequestObject::Of(self).OnRenderProcessTerminated(browser, status);
}

void FillDisplayHandler(cef_display_handler_t& slots) {
  slots.on_console_message = OnConsoleMessage;
}

void FillLifeSpanHandler(cef_life_span_handler_t& slots) {
  slots.on_before_popup = OnBeforePopup;
  slots.on_after_created = OnAfterCreated;
  slots.on_before_close = OnBeforeClose;
}

void FillLoadHandler(cef_load_handler_t& slots) {
  slots.on_load_end = OnLoadEnd;
  slots.on_load_error = OnLoadError;
}

void FillRenderHandler(cef_render_handler_t& slots) {
  slots.get_view_rect = GetViewRect;
  slots.on_paint = OnPaint;
}

void FillRequestHandler(cef_request_handler_t& slots) {
  slots.on_render_process_terminated = OnRenderProcessTerminated;
}

cef_display_handler_t* GetDisplayHandler(cef_client_t* self) {
  if (Rejected(self)) return nullptr;
  return DisplayObject::Wrap(ClientHandlers::Of(self).GetDisplayHandler(), FillDisplayHandler);
}

cef_life_span_handler_t* GetLifeSpanHandler(cef_client_t* self) {
  if (Rejected(self)) return nullptr;
  return LifeSpanObject::Wrap(ClientHandlers::Of(self).GetLifeSpanHandler(), FillLifeSpanHandler);
}

cef_load_handler_t* GetLoadHandler(cef_client_t* self) {
  if (Rejected(self)) return nullptr;
  return LoadObject::Wrap(ClientHandlers::Of(self).GetLoadHandler(), FillLoadHandler);
}

cef_render_handler_t* GetRenderHandler(cef_client_t* self) {
  if (Rejected(self)) return nullptr;
  return RenderObject::Wrap(ClientHandlers::Of(self).GetRenderHandler(), FillRenderHandler);
}

cef_request_handler_t* GetRequestHandler(cef_client_t* self) {
  if (Rejected(self)) return nullptr;
  return RequestObject::Wrap(ClientHandlers::Of(self).GetRequestHandler(), FillRequestHandler);
}

int OnProcessMessageReceived(cef_client_t* self, cef_browser_t* browser_in,
                             cef_process_id_t source_process, cef_process_message_t* message_in) {
  const auto browser = Adopt<CefBrowser>(browser_in);
  const auto message = Adopt<CefProcessMessage>(message_in);
  if (Rejected(self) || Rejected(browser) || Rejected(message)) return 0;
  return ClientHandlers::Of(self).OnProcessMessageReceived(browser, source_process, message) ? 1
                                                                                             : 0;
}

void FillClient(cef_client_t& slots) {
  slots.get_display_handler = GetDisplayHandler;
  slots.get_life_span_handler = GetLifeSpanHandler;
  slots.get_load_handler = GetLoadHandler;
  slots.get_render_handler = GetRenderHandler;
  slots.get_request_handler = GetRequestHandler;
  slots.on_process_message_received = OnProcessMessageReceived;
}

}  // namespace

bool CefBrowserHost::CreateBrowser(const CefWindowInfo& windowInfo, CefRefPtr<CefClient> client,
                                   const CefString& url, const CefBrowserSettings& settings,
                                   std::nullptr_t request_context) {
  return cef_browser_host_create_browser(&windowInfo, ClientHandlers::Wrap(client, FillClient),
                                         url.GetStruct(), &settings, request_context) != 0;
}
