// Tests that a call with an unusable required parameter is rejected: it does not reach the other
// side and returns an empty result. With assertions, it ends the process. The program is built both
// with and without assertions. A new member with a required parameter is one line below.

#include <gtest/gtest.h>
#include <csignal>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "include/cef_parser.h"
#include "include/cef_task.h"
#include "support/fake_cef/fake_cef_test.h"
#include "tests/cef_binding/client_probe.h"

namespace {

using fake_cef::PlainObject;

// A call that must be rejected.
struct RejectedCall {
  // The last component of the function's name.
  std::string Function() const {
    const std::string qualified = name.substr(0, name.find('('));
    return qualified.substr(qualified.find_last_of(":.") + 1);
  }

  std::string name;            // "CefFrame::LoadURL("")"
  std::function<bool()> call;  // returns true when the result is empty
};

void PrintTo(const RejectedCall& call, std::ostream* out) { *out << call.name; }

class RejectedCallTest : public fake_cef::FakeCefTest,
                         public testing::WithParamInterface<RejectedCall> {};

TEST_P(RejectedCallTest, RejectsUnusableParameter) {
  probe_notes() = ProbeNotes();
  probe_notes().answer = true;
#ifdef NDEBUG
  EXPECT_TRUE(GetParam().call());
  EXPECT_EQ(probe_notes().call, "");
#else
  EXPECT_EXIT(GetParam().call(), testing::KilledBySignal(SIGABRT),
              "cef_binding: " + GetParam().Function() + ": a required parameter is");
#endif
}

// Returns whether `call` returns null, false, 0, an empty string or void.
template <class Call>
bool ReturnsNothing(Call call) {
  using Result = decltype(call());
  if constexpr (std::is_void_v<Result>) {
    call();
    return true;
  } else {
    return call() == Result();
  }
}

// Returns an object whose slots all report misuse.
template <class Class>
CefRefPtr<Class> Some() {
  return cef_binding::Adopt<Class>(new PlainObject<typename Class::StructType>);
}

#define METHOD(Class, Method, ...)                                                       \
  RejectedCall {                                                                         \
#Class "::" #Method "(" #__VA_ARGS__ ")",                                            \
        [] { return ReturnsNothing([] { return Some<Class>()->Method(__VA_ARGS__); }); } \
  }

#define FUNCTION(Function, ...)                                             \
  RejectedCall {                                                            \
#Function "(" #__VA_ARGS__ ")",                                         \
        [] { return ReturnsNothing([] { return Function(__VA_ARGS__); }); } \
  }

const RejectedCall kCallsOfTheLibrary[] = {
    METHOD(CefBrowser, SendProcessMessage, PID_BROWSER, nullptr),
    METHOD(CefCommandLine, HasSwitch, ""),
    METHOD(CefCommandLine, GetSwitchValue, ""),
    METHOD(CefCommandLine, AppendSwitch, ""),
    METHOD(CefCommandLine, AppendSwitchWithValue, "", "value"),
    METHOD(CefCommandLine, AppendSwitchWithValue, "name", ""),
    METHOD(CefDictionaryValue, SetInt, "", 1),
    METHOD(CefFrame, LoadURL, ""),
    METHOD(CefListValue, SetValue, 0, nullptr),
    METHOD(CefListValue, SetBinary, 0, nullptr),
    METHOD(CefListValue, SetDictionary, 0, nullptr),
    METHOD(CefListValue, SetList, 0, nullptr),
    METHOD(CefValue, SetList, nullptr),
    METHOD(CefV8Context, IsSame, nullptr),
    METHOD(CefV8Value, GetValue, -1),
    METHOD(CefV8Value, SetValue, -1, Some<CefV8Value>()),
    METHOD(CefV8Value, SetValue, 0, nullptr),
    METHOD(CefV8Value, SetValue, "key", nullptr, V8_PROPERTY_ATTRIBUTE_NONE),
    METHOD(CefV8Value, ExecuteFunctionWithContext, nullptr, Some<CefV8Value>(), CefV8ValueList()),
    FUNCTION(CefBinaryValue::Create, nullptr, 0),
    FUNCTION(CefProcessMessage::Create, ""),
    FUNCTION(CefPostTask, TID_UI, nullptr),
    FUNCTION(CefPostDelayedTask, TID_UI, nullptr, 1),
    FUNCTION(CefWriteJSON, nullptr, JSON_WRITER_DEFAULT),
    FUNCTION(CefV8Value::CreateFunction, "", nullptr),
    FUNCTION(CefV8Value::CreateFunction, "name", nullptr),
    FUNCTION(CefRegisterExtension, "", "source", nullptr),
    FUNCTION(CefRegisterExtension, "name", "", nullptr),
};

INSTANTIATE_TEST_SUITE_P(Library, RejectedCallTest, testing::ValuesIn(kCallsOfTheLibrary));

// Returns an argument as the library passes it: null, a valid pointer, or the number 1.
template <class Parameter>
Parameter Passed(bool is_null) {
  using Pointee = std::remove_pointer_t<Parameter>;
  if constexpr (!std::is_pointer_v<Parameter>) {
    return static_cast<Parameter>(1);
  } else if (is_null) {
    return nullptr;
  } else if constexpr (std::is_same_v<Parameter, cef_v8value_t* const*>) {
    static cef_v8value_t* values[1];
    values[0] = new PlainObject<cef_v8value_t>;
    return values;
  } else if constexpr (std::is_same_v<Parameter, cef_client_t**>) {
    static cef_client_t* client;
    client = NewClientStruct<cef_client_t>().Give();
    return &client;
  } else if constexpr (std::is_same_v<Parameter, const void*>) {
    return "";
  } else if constexpr (std::is_const_v<Pointee> || !std::is_class_v<Pointee> ||
                       std::is_same_v<Pointee, cef_string_t> ||
                       std::is_same_v<Pointee, cef_rect_t> ||
                       std::is_same_v<Pointee, cef_window_info_t> ||
                       std::is_same_v<Pointee, cef_browser_settings_t>) {
    static std::remove_const_t<Pointee> data{};
    return &data;
  } else {
    return new PlainObject<Pointee>;
  }
}

constexpr int kSelf = -1;

// Calls a slot with null for self or for one parameter, which `null` selects by its index after
// self.
template <class Struct, class Result, class... Parameters, int... indexes>
bool CallWithNull(int null, Result (*Struct::*slot)(Struct*, Parameters...),
                  std::integer_sequence<int, indexes...>) {
  const auto client = NewClientStruct<Struct>();
  return ReturnsNothing([&] {
    return (client.get()->*slot)(null == kSelf ? nullptr : client.get(),
                                 Passed<Parameters>(null == indexes)...);
  });
}

template <class Struct, class Result, class... Parameters>
std::vector<RejectedCall> CallsOf(Result (*Struct::*slot)(Struct*, Parameters...),
                                  const std::string& name, std::vector<int> required) {
  std::vector<RejectedCall> calls;
  required.push_back(kSelf);
  for (const int null : required) {
    const std::string parameter = null == kSelf ? "self" : "parameter " + std::to_string(null);
    calls.push_back({name + "(" + parameter + ")", [slot, null] {
                       return CallWithNull(
                           null, slot, std::make_integer_sequence<int, sizeof...(Parameters)>());
                     }});
  }
  return calls;
}

// Returns the calls for each slot, with the indexes of its required parameters.
std::vector<RejectedCall> CallsByTheLibrary() {
  std::vector<RejectedCall> all;
  for (const auto& calls : {
           CallsOf(&cef_app_t::on_before_command_line_processing,
                   "cef_app_t.OnBeforeCommandLineProcessing", {1}),
           CallsOf(&cef_app_t::get_browser_process_handler, "cef_app_t.GetBrowserProcessHandler",
                   {}),
           CallsOf(&cef_app_t::get_render_process_handler, "cef_app_t.GetRenderProcessHandler", {}),
           CallsOf(&cef_browser_process_handler_t::on_context_initialized,
                   "cef_browser_process_handler_t.OnContextInitialized", {}),
           CallsOf(&cef_render_process_handler_t::on_web_kit_initialized,
                   "cef_render_process_handler_t.OnWebKitInitialized", {}),
           CallsOf(&cef_render_process_handler_t::on_before_navigation,
                   "cef_render_process_handler_t.OnBeforeNavigation", {0, 1, 2}),
           CallsOf(&cef_render_process_handler_t::on_context_released,
                   "cef_render_process_handler_t.OnContextReleased", {0, 1, 2}),
           CallsOf(&cef_render_process_handler_t::on_process_message_received,
                   "cef_render_process_handler_t.OnProcessMessageReceived", {0, 2}),
           CallsOf(&cef_client_t::get_display_handler, "cef_client_t.GetDisplayHandler", {}),
           CallsOf(&cef_client_t::get_life_span_handler, "cef_client_t.GetLifeSpanHandler", {}),
           CallsOf(&cef_client_t::get_load_handler, "cef_client_t.GetLoadHandler", {}),
           CallsOf(&cef_client_t::get_render_handler, "cef_client_t.GetRenderHandler", {}),
           CallsOf(&cef_client_t::get_request_handler, "cef_client_t.GetRequestHandler", {}),
           CallsOf(&cef_client_t::on_process_message_received,
                   "cef_client_t.OnProcessMessageReceived", {0, 2}),
           CallsOf(&cef_display_handler_t::on_console_message,
                   "cef_display_handler_t.OnConsoleMessage", {0}),
           CallsOf(&cef_life_span_handler_t::on_before_popup,
                   "cef_life_span_handler_t.OnBeforePopup", {0, 1, 6, 7, 8, 9, 10}),
           CallsOf(&cef_life_span_handler_t::on_after_created,
                   "cef_life_span_handler_t.OnAfterCreated", {0}),
           CallsOf(&cef_life_span_handler_t::on_before_close,
                   "cef_life_span_handler_t.OnBeforeClose", {0}),
           CallsOf(&cef_load_handler_t::on_load_end, "cef_load_handler_t.OnLoadEnd", {0, 1}),
           CallsOf(&cef_load_handler_t::on_load_error, "cef_load_handler_t.OnLoadError", {0, 1, 4}),
           CallsOf(&cef_render_handler_t::get_view_rect, "cef_render_handler_t.GetViewRect",
                   {0, 1}),
           CallsOf(&cef_render_handler_t::on_paint, "cef_render_handler_t.OnPaint", {0, 3, 4}),
           CallsOf(&cef_request_handler_t::on_render_process_terminated,
                   "cef_request_handler_t.OnRenderProcessTerminated", {0}),
           CallsOf(&cef_task_t::execute, "cef_task_t.Execute", {}),
           CallsOf(&cef_v8handler_t::execute, "cef_v8handler_t.Execute", {0, 1, 3, 4, 5}),
       }) {
    all.insert(all.end(), calls.begin(), calls.end());
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(Client, RejectedCallTest, testing::ValuesIn(CallsByTheLibrary()));

// All structs share the functions that count references.
template <class Result>
RejectedCall CountingCall(Result (*cef_base_ref_counted_t::*function)(cef_base_ref_counted_t*),
                          const char* name) {
  return {name, [function] {
            const auto client = NewClientStruct<cef_task_t>();
            return ReturnsNothing([&] { return (client->base.*function)(nullptr); });
          }};
}

INSTANTIATE_TEST_SUITE_P(
    Counting, RejectedCallTest,
    testing::Values(CountingCall(&cef_base_ref_counted_t::add_ref, "base.AddRef"),
                    CountingCall(&cef_base_ref_counted_t::release, "base.Release"),
                    CountingCall(&cef_base_ref_counted_t::has_one_ref, "base.HasOneRef")));

}  // namespace
