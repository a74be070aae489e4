#include "include/cef_client.h"

#include "client_object.h"
#include "include/capi/cef_client_capi.h"

using cef_binding::Adopt;
using cef_binding::ClientObject;

namespace {

using DisplayObject = ClientObject<CefDisplayHandler, cef_display_handler_t>;
using LifeSpanObject = ClientObject<CefLifeSpanHandler, cef_life_span_handler_t>;
using LoadObject = ClientObject<CefLoadHandler, cef_load_handler_t>;
using RenderObject = ClientObject<CefRenderHandler, cef_render_handler_t>;
using RequestObject = ClientObject<CefRequestHandler, cef_request_handler_t>;
using ClientHandlers = ClientObject<CefClient, cef_client_t>;

void FillDisplayHandler(cef_display_handler_t& slots) {
  slots.on_console_message = [](cef_display_handler_t* self, cef_browser_t* browser,
                                const cef_string_t* message, const cef_string_t* source, int line) {
    return DisplayObject::Of(self).OnConsoleMessage(Adopt<CefBrowser>(browser), CefString(message),
                                                    CefString(source), line)
               ? 1
               : 0;
  };
}

void FillLifeSpanHandler(cef_life_span_handler_t& slots) {
  slots.on_after_created = [](cef_life_span_handler_t* self, cef_browser_t* browser) {
    LifeSpanObject::Of(self).OnAfterCreated(Adopt<CefBrowser>(browser));
  };
  slots.on_before_close = [](cef_life_span_handler_t* self, cef_browser_t* browser) {
    LifeSpanObject::Of(self).OnBeforeClose(Adopt<CefBrowser>(browser));
  };
}

void FillLoadHandler(cef_load_handler_t& slots) {
  slots.on_load_end = [](cef_load_handler_t* self, cef_browser_t* browser, cef_frame_t* frame,
                         int http_status_code) {
    LoadObject::Of(self).OnLoadEnd(Adopt<CefBrowser>(browser), Adopt<CefFrame>(frame),
                                   http_status_code);
  };
  slots.on_load_error = [](cef_load_handler_t* self, cef_browser_t* browser, cef_frame_t* frame,
                           cef_errorcode_t error_code, const cef_string_t* error_text,
                           const cef_string_t* failed_url) {
    LoadObject::Of(self).OnLoadError(Adopt<CefBrowser>(browser), Adopt<CefFrame>(frame), error_code,
                                     CefString(error_text), CefString(failed_url));
  };
}

void FillRenderHandler(cef_render_handler_t& slots) {
  slots.get_view_rect = [](cef_render_handler_t* self, cef_browser_t* browser, cef_rect_t* rect) {
    CefRect view(*rect);
    const bool known = RenderObject::Of(self).GetViewRect(Adopt<CefBrowser>(browser), view);
    if (known) *rect = view;
    return known ? 1 : 0;
  };
  slots.on_paint = [](cef_render_handler_t* self, cef_browser_t* browser,
                      cef_paint_element_type_t type, std::size_t dirty_rects_count,
                      const cef_rect_t* dirty_rects, const void* buffer, int width, int height) {
    RenderObject::Of(self).OnPaint(
        Adopt<CefBrowser>(browser), type,
        CefRenderHandler::RectList(dirty_rects, dirty_rects + dirty_rects_count), buffer, width,
        height);
  };
}

void FillRequestHandler(cef_request_handler_t& slots) {
  slots.on_render_process_terminated = [](cef_request_handler_t* self, cef_browser_t* browser,
                                          cef_termination_status_t status) {
    RequestObject::Of(self).OnRenderProcessTerminated(Adopt<CefBrowser>(browser), status);
  };
}

void FillClient(cef_client_t& slots) {
  slots.get_display_handler = [](cef_client_t* self) {
    return DisplayObject::Wrap(ClientHandlers::Of(self).GetDisplayHandler(), FillDisplayHandler);
  };
  slots.get_life_span_handler = [](cef_client_t* self) {
    return LifeSpanObject::Wrap(ClientHandlers::Of(self).GetLifeSpanHandler(), FillLifeSpanHandler);
  };
  slots.get_load_handler = [](cef_client_t* self) {
    return LoadObject::Wrap(ClientHandlers::Of(self).GetLoadHandler(), FillLoadHandler);
  };
  slots.get_render_handler = [](cef_client_t* self) {
    return RenderObject::Wrap(ClientHandlers::Of(self).GetRenderHandler(), FillRenderHandler);
  };
  slots.get_request_handler = [](cef_client_t* self) {
    return RequestObject::Wrap(ClientHandlers::Of(self).GetRequestHandler(), FillRequestHandler);
  };
  slots.on_process_message_received = [](cef_client_t* self, cef_browser_t* browser,
                                         cef_process_id_t source_process,
                                         cef_process_message_t* message) {
    return ClientHandlers::Of(self).OnProcessMessageReceived(
               Adopt<CefBrowser>(browser), source_process, Adopt<CefProcessMessage>(message))
               ? 1
               : 0;
  };
}

}  // namespace

bool CefBrowserHost::CreateBrowser(const CefWindowInfo& windowInfo, CefRefPtr<CefClient> client,
                                   const CefString& url, const CefBrowserSettings& settings,
                                   std::nullptr_t request_context) {
  return cef_browser_host_create_browser(&windowInfo, ClientHandlers::Wrap(client, FillClient),
                                         url.GetStruct(), &settings, request_context) != 0;
}
