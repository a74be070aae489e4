#include "tests/cef_binding/client_probe.h"

#include <atomic>

#include "include/cef_task.h"

using fake_cef::library;
using fake_cef::Own;

namespace {

std::atomic<int> live_probes{0};

std::string Describe(const CefString& text) { return '"' + text.ToString() + '"'; }
std::string Describe(bool value) { return value ? "true" : "false"; }
template <class Class>
std::string Describe(const CefRefPtr<Class>& object) {
  if (object && probe_notes().keep) probe_notes().kept.push_back(object);
  return object ? "object" : "null";
}
template <class Number>
std::string Describe(const Number& number) {
  return std::to_string(number);
}

template <class... Arguments>
bool Note(const char* method, const Arguments&... arguments) {
  probe_notes().call += method;
  ((probe_notes().call += " " + Describe(arguments)), ...);
  return probe_notes().answer;
}

class LiveProbe {
 protected:
  LiveProbe() { ++live_probes; }
  ~LiveProbe() { --live_probes; }
};

class AppProbe : public CefApp,
                 public CefBrowserProcessHandler,
                 public CefRenderProcessHandler,
                 private LiveProbe {
 public:
  void OnBeforeCommandLineProcessing(const CefString& type,
                                     CefRefPtr<CefCommandLine> line) override {
    Note("OnBeforeCommandLineProcessing", type, line);
  }
  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override {
    return probe_notes().has_handlers ? this : nullptr;
  }
  CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() override {
    return probe_notes().has_handlers ? this : nullptr;
  }
  void OnContextInitialized() override { Note("OnContextInitialized"); }
  void OnWebKitInitialized() override { Note("OnWebKitInitialized"); }
  bool OnBeforeNavigation(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                          CefRefPtr<CefRequest> request, NavigationType type,
                          bool redirect) override {
    return Note("OnBeforeNavigation", browser, frame, request, type, redirect);
  }
  void OnContextReleased(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame,
                         CefRefPtr<CefV8Context> context) override {
    Note("OnContextReleased", browser, frame, context);
  }
  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId source,
                                CefRefPtr<CefProcessMessage> message) override {
    return Note("OnProcessMessageReceived", browser, source, message);
  }
  IMPLEMENT_REFCOUNTING(AppProbe)
};

class ClientProbe : public CefClient,
                    public CefDisplayHandler,
                    public CefLifeSpanHandler,
                    public CefLoadHandler,
                    public CefRenderHandler,
                    public CefRequestHandler,
                    private LiveProbe {
 public:
  template <class Handler>
  CefRefPtr<Handler> This() {
    return probe_notes().has_handlers ? this : nullptr;
  }
  CefRefPtr<CefDisplayHandler> GetDisplayHandler() override { return This<CefDisplayHandler>(); }
  CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() override { return This<CefLifeSpanHandler>(); }
  CefRefPtr<CefLoadHandler> GetLoadHandler() override { return This<CefLoadHandler>(); }
  CefRefPtr<CefRenderHandler> GetRenderHandler() override { return This<CefRenderHandler>(); }
  CefRefPtr<CefRequestHandler> GetRequestHandler() override { return This<CefRequestHandler>(); }
  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId source,
                                CefRefPtr<CefProcessMessage> message) override {
    return Note("OnProcessMessageReceived", browser, source, message);
  }
  bool OnConsoleMessage(CefRefPtr<CefBrowser> browser, const CefString& message,
                        const CefString& source, int line) override {
    return Note("OnConsoleMessage", browser, message, source, line);
  }
  bool OnBeforePopup(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame, const CefString& url,
                     const CefString& name, CefLifeSpanHandler::WindowOpenDisposition disposition,
                     bool user_gesture, const CefPopupFeatures& /*features*/, CefWindowInfo& info,
                     CefRefPtr<CefClient>& client, CefBrowserSettings& settings,
                     bool* no_javascript_access) override {
    Note("OnBeforePopup", browser, frame, url, name, disposition, user_gesture, info.width,
         client.get() == this, settings.javascript, CefString(&settings.default_encoding),
         *no_javascript_access);
    if (probe_notes().change_popup) {
      probe_notes().change_popup(info, client, settings, *no_javascript_access);
    }
    return probe_notes().answer;
  }
  void OnAfterCreated(CefRefPtr<CefBrowser> browser) override { Note("OnAfterCreated", browser); }
  void OnBeforeClose(CefRefPtr<CefBrowser> browser) override { Note("OnBeforeClose", browser); }
  void OnLoadEnd(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame, int status) override {
    Note("OnLoadEnd", browser, frame, status);
  }
  void OnLoadError(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame, ErrorCode error,
                   const CefString& text, const CefString& url) override {
    Note("OnLoadError", browser, frame, error, text, url);
  }
  bool GetViewRect(CefRefPtr<CefBrowser> browser, CefRect& rect) override {
    rect.width = 640;
    rect.height = 480;
    return Note("GetViewRect", browser);
  }
  void OnPaint(CefRefPtr<CefBrowser> browser, PaintElementType type, const RectList& dirty,
               const void* buffer, int width, int height) override {
    Note("OnPaint", browser, type);
    for (const CefRect& rect : dirty)
      Note("", rect.x, rect.y, rect.width, rect.height);
    Note(buffer ? " buffer" : " no buffer", width, height);
  }
  void OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser, TerminationStatus status) override {
    Note("OnRenderProcessTerminated", browser, status);
  }
  IMPLEMENT_REFCOUNTING(ClientProbe)
};

class TaskProbe : public CefTask, private LiveProbe {
 public:
  void Execute() override { Note("Execute"); }
  IMPLEMENT_REFCOUNTING(TaskProbe)
};

class V8Probe : public CefV8Handler, private LiveProbe {
 public:
  bool Execute(const CefString& name, CefRefPtr<CefV8Value> object, const CefV8ValueList& arguments,
               CefRefPtr<CefV8Value>& retval, CefString& exception) override {
    Note("Execute", name, object);
    for (const auto& argument : arguments)
      Note("", argument);
    if (name == "returns") retval = arguments.back();
    if (name == "throws") exception = "thrown";
    return probe_notes().answer;
  }
  IMPLEMENT_REFCOUNTING(V8Probe)
};

}  // namespace

ProbeNotes& probe_notes() {
  static ProbeNotes notes;
  return notes;
}

int LiveProbes() { return live_probes; }

template <>
Own<cef_app_t> NewClientStruct<cef_app_t>() {
  Own<cef_app_t> result;
  library().child_process = [&](const cef_main_args_t&, cef_app_t& app) {
    app.base.add_ref(&app.base);
    result = Own<cef_app_t>::Take(&app);
    return 0;
  };
  CefExecuteProcess(CefMainArgs(0, nullptr), new AppProbe, nullptr);
  library().child_process = nullptr;
  return result;
}

template <>
Own<cef_browser_process_handler_t> NewClientStruct<cef_browser_process_handler_t>() {
  const auto app = NewClientStruct<cef_app_t>();
  return Own<cef_browser_process_handler_t>::Take(app->get_browser_process_handler(app.get()));
}

template <>
Own<cef_render_process_handler_t> NewClientStruct<cef_render_process_handler_t>() {
  const auto app = NewClientStruct<cef_app_t>();
  return Own<cef_render_process_handler_t>::Take(app->get_render_process_handler(app.get()));
}

template <>
Own<cef_client_t> NewClientStruct<cef_client_t>() {
  CefBrowserHost::CreateBrowser(CefWindowInfo(), new ClientProbe, "about:blank",
                                CefBrowserSettings(), nullptr);
  return std::move(library().client);
}

template <>
Own<cef_display_handler_t> NewClientStruct<cef_display_handler_t>() {
  const auto client = NewClientStruct<cef_client_t>();
  return Own<cef_display_handler_t>::Take(client->get_display_handler(client.get()));
}

template <>
Own<cef_life_span_handler_t> NewClientStruct<cef_life_span_handler_t>() {
  const auto client = NewClientStruct<cef_client_t>();
  return Own<cef_life_span_handler_t>::Take(client->get_life_span_handler(client.get()));
}

template <>
Own<cef_load_handler_t> NewClientStruct<cef_load_handler_t>() {
  const auto client = NewClientStruct<cef_client_t>();
  return Own<cef_load_handler_t>::Take(client->get_load_handler(client.get()));
}

template <>
Own<cef_render_handler_t> NewClientStruct<cef_render_handler_t>() {
  const auto client = NewClientStruct<cef_client_t>();
  return Own<cef_render_handler_t>::Take(client->get_render_handler(client.get()));
}

template <>
Own<cef_request_handler_t> NewClientStruct<cef_request_handler_t>() {
  const auto client = NewClientStruct<cef_client_t>();
  return Own<cef_request_handler_t>::Take(client->get_request_handler(client.get()));
}

template <>
Own<cef_task_t> NewClientStruct<cef_task_t>() {
  CefPostTask(TID_UI, new TaskProbe);
  auto task = std::move(library().tasks.back().task);
  library().tasks.pop_back();
  return task;
}

template <>
Own<cef_v8handler_t> NewClientStruct<cef_v8handler_t>() {
  CefRegisterExtension("v8/probe", "source", new V8Probe);
  return std::move(library().extensions.back().handler);
}
