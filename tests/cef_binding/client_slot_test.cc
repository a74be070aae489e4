// Tests that each slot of the structs for the library calls the right method of the application's
// object with all arguments, and releases every reference that comes with the call. A new slot is
// one line below.

#include <gtest/gtest.h>
#include <functional>
#include <type_traits>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/cef_binding/client_probe.h"

namespace {

using fake_cef::Make;
using fake_cef::Own;
using fake_cef::PlainObject;

// Returns an argument as the library passes it: an object, a string, or the number 1.
template <class Parameter>
Parameter Passed() {
  static char16 text[] = u"text";
  static const cef_string_t string{text, 4, nullptr};
  if constexpr (std::is_same_v<Parameter, const cef_string_t*>) {
    return &string;
  } else if constexpr (std::is_pointer_v<Parameter>) {
    return new PlainObject<std::remove_pointer_t<Parameter>>;
  } else {
    return static_cast<Parameter>(1);
  }
}

template <class Struct, class Result, class... Parameters>
void CheckCall(Result (*Struct::*slot)(Struct*, Parameters...), bool keep) {
  ProbeNotes& notes = probe_notes();
  for (const bool answer : {false, true}) {
    notes = ProbeNotes();
    const auto self = NewClientStruct<Struct>();
    notes.answer = answer;
    notes.keep = keep;
    if constexpr (std::is_same_v<Result, int>) {
      EXPECT_EQ((self.get()->*slot)(self.get(), Passed<Parameters>()...), answer ? 1 : 0);
    } else {
      (self.get()->*slot)(self.get(), Passed<Parameters>()...);
    }
    EXPECT_EQ(fake_cef::LiveObjects().size(), notes.kept.size());
    notes.kept.clear();
    EXPECT_TRUE(fake_cef::LiveObjects().empty());
  }
}

template <class Struct, class Slot>
void CheckSlot(Slot slot, const std::string& call) {
  for (const bool keep : {false, true}) {
    CheckCall(slot, keep);
    EXPECT_EQ(probe_notes().call, call);
  }
  EXPECT_EQ(LiveProbes(), 0);
}

struct ClientSlotCase {
  const char* name;
  std::function<void()> check;
};

#define SLOT(Struct, slot, call)                                      \
  ClientSlotCase {                                                    \
#Struct "." #slot, [] { CheckSlot<Struct>(&Struct::slot, call); } \
  }

const ClientSlotCase kSlots[] = {
    SLOT(cef_app_t, on_before_command_line_processing,
         "OnBeforeCommandLineProcessing \"text\" object"),
    SLOT(cef_browser_process_handler_t, on_context_initialized, "OnContextInitialized"),
    SLOT(cef_render_process_handler_t, on_web_kit_initialized, "OnWebKitInitialized"),
    SLOT(cef_render_process_handler_t, on_before_navigation,
         "OnBeforeNavigation object object object 1 true"),
    SLOT(cef_render_process_handler_t, on_context_released,
         "OnContextReleased object object object"),
    SLOT(cef_render_process_handler_t, on_process_message_received,
         "OnProcessMessageReceived object 1 object"),
    SLOT(cef_client_t, on_process_message_received, "OnProcessMessageReceived object 1 object"),
    SLOT(cef_display_handler_t, on_console_message, "OnConsoleMessage object \"text\" \"text\" 1"),
    SLOT(cef_life_span_handler_t, on_after_created, "OnAfterCreated object"),
    SLOT(cef_life_span_handler_t, on_before_close, "OnBeforeClose object"),
    SLOT(cef_load_handler_t, on_load_end, "OnLoadEnd object object 1"),
    SLOT(cef_load_handler_t, on_load_error, "OnLoadError object object 1 \"text\" \"text\""),
    SLOT(cef_request_handler_t, on_render_process_terminated, "OnRenderProcessTerminated object 1"),
    SLOT(cef_task_t, execute, "Execute"),
};

void PrintTo(const ClientSlotCase& slot, std::ostream* out) { *out << slot.name; }

class ClientSlotTest : public fake_cef::FakeCefTest,
                       public testing::WithParamInterface<ClientSlotCase> {};

TEST_P(ClientSlotTest, CallsMethod) { GetParam().check(); }

INSTANTIATE_TEST_SUITE_P(All, ClientSlotTest, testing::ValuesIn(kSlots));

class OptionalStringTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    probe_notes() = ProbeNotes();
  }
};

TEST_F(OptionalStringTest, NullProcessTypeArrivesEmpty) {
  const auto app = NewClientStruct<cef_app_t>();
  app->on_before_command_line_processing(app.get(), nullptr, new PlainObject<cef_command_line_t>);
  EXPECT_EQ(probe_notes().call, "OnBeforeCommandLineProcessing \"\" object");
}

TEST_F(OptionalStringTest, NullConsoleMessageAndSourceArriveEmpty) {
  const auto handler = NewClientStruct<cef_display_handler_t>();
  handler->on_console_message(handler.get(), new PlainObject<cef_browser_t>, nullptr, nullptr, 1);
  EXPECT_EQ(probe_notes().call, "OnConsoleMessage object \"\" \"\" 1");
}

TEST_F(OptionalStringTest, NullErrorTextArrivesEmpty) {
  const auto handler = NewClientStruct<cef_load_handler_t>();
  const CefString url("url");
  handler->on_load_error(handler.get(), new PlainObject<cef_browser_t>,
                         new PlainObject<cef_frame_t>, ERR_FAILED, nullptr, url.GetStruct());
  EXPECT_EQ(probe_notes().call, "OnLoadError object object -2 \"\" \"url\"");
}

// Tests slots with arrays and with out-parameters.
class RenderSlotTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    probe_notes() = ProbeNotes();
    handler_ = NewClientStruct<cef_render_handler_t>();
  }
  void TearDown() override {
    handler_ = nullptr;
    FakeCefTest::TearDown();
  }

  Own<cef_render_handler_t> handler_;
};

TEST_F(RenderSlotTest, SetsViewRectOnlyWhenHandlerReturnsTrue) {
  cef_rect_t rect{1, 2, 3, 4};
  EXPECT_EQ(handler_->get_view_rect(handler_.get(), new PlainObject<cef_browser_t>, &rect), 0);
  EXPECT_EQ(rect.width, 3);
  EXPECT_EQ(rect.height, 4);
  probe_notes().answer = true;
  EXPECT_EQ(handler_->get_view_rect(handler_.get(), new PlainObject<cef_browser_t>, &rect), 1);
  EXPECT_EQ(rect.x, 1);
  EXPECT_EQ(rect.y, 2);
  EXPECT_EQ(rect.width, 640);
  EXPECT_EQ(rect.height, 480);
}

TEST_F(RenderSlotTest, PassesEachDirtyRectangle) {
  const cef_rect_t dirty[] = {{1, 2, 3, 4}, {5, 6, 7, 8}};
  handler_->on_paint(handler_.get(), new PlainObject<cef_browser_t>, PET_POPUP, 2, dirty, dirty, 9,
                     10);
  EXPECT_EQ(probe_notes().call, "OnPaint object 1 1 2 3 4 5 6 7 8 buffer 9 10");
  probe_notes().call.clear();
  handler_->on_paint(handler_.get(), new PlainObject<cef_browser_t>, PET_VIEW, 0, nullptr, "", 0,
                     0);
  EXPECT_EQ(probe_notes().call, "OnPaint object 0 buffer 0 0");
}

class V8HandlerSlotTest : public fake_cef::FakeCefTest {
 protected:
  using Value = PlainObject<cef_v8value_t>;

  void SetUp() override {
    FakeCefTest::SetUp();
    probe_notes() = ProbeNotes();
  }

  // Calls the function. The callee takes over the references in `arguments`.
  int Execute(const char* function, std::vector<cef_v8value_t*> arguments) {
    const auto handler = NewClientStruct<cef_v8handler_t>();
    const CefString name(function);
    CefString thrown;
    cef_string_t exception{};
    cef_v8value_t* retval = nullptr;
    const int handled = handler->execute(handler.get(), name.GetStruct(), new Value,
                                         arguments.size(), arguments.data(), &retval, &exception);
    returned_ = Own<cef_v8value_t>::Take(retval);
    thrown_ = CefString(&exception).ToString();
    CefString(&exception).clear();
    return handled;
  }

  Own<cef_v8value_t> returned_;
  std::string thrown_;
};

TEST_F(V8HandlerSlotTest, PassesArgumentsInOrderAndReleasesThem) {
  EXPECT_EQ(Execute("f", {new Value, nullptr, new Value}), 0);
  EXPECT_EQ(probe_notes().call, "Execute \"f\" object object null object");
  EXPECT_EQ(returned_.get(), nullptr);
  EXPECT_EQ(thrown_, "");
  EXPECT_TRUE(fake_cef::LiveObjects().empty());
  probe_notes().call.clear();
  probe_notes().answer = true;
  EXPECT_EQ(Execute("f", {}), 1);
  EXPECT_EQ(probe_notes().call, "Execute \"f\" object");
}

TEST_F(V8HandlerSlotTest, ReturnsValueWithReference) {
  const auto value = Make<Value>();
  Execute("returns", {value.Give()});
  EXPECT_EQ(returned_.get(), value.get());
  EXPECT_EQ(value->references(), 2);
  returned_ = nullptr;
  EXPECT_EQ(value->references(), 1);
}

TEST_F(V8HandlerSlotTest, NullResultKeepsOutParameter) {
  Execute("returns", {nullptr});
  EXPECT_EQ(returned_.get(), nullptr);
}

TEST_F(V8HandlerSlotTest, WritesExceptionToLibraryString) {
  Execute("throws", {});
  EXPECT_EQ(thrown_, "thrown");
}

}  // namespace
