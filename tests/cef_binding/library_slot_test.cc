// Tests that each method of the classes over the library's objects calls the right slot once,
// passes on its arguments, returns the slot's result, and keeps the reference counts right. A new
// method is one line below.

#include <gtest/gtest.h>
#include <functional>
#include <type_traits>

#include "include/cef_client.h"
#include "include/cef_command_line.h"
#include "include/cef_cookie.h"
#include "include/cef_v8.h"
#include "support/fake_cef/fake_cef_test.h"

namespace {

using fake_cef::Make;
using fake_cef::Own;
using fake_cef::PlainObject;

struct Record {
  bool gives = true;  // whether the slot returns a value, or else 0, false or null
  int calls = 0;
  std::string arguments;
};
Record record;

template <class Parameter>
std::string Received(Parameter value) {
  if constexpr (std::is_same_v<Parameter, const cef_string_t*>) {
    return '"' + fake_cef::ToUtf8(fake_cef::TextOf(value)) + '"';
  } else if constexpr (std::is_same_v<Parameter, cef_string_list_t>) {
    return fake_cef::ToUtf8(fake_cef::ListText(value));
  } else if constexpr (std::is_pointer_v<Parameter>) {
    const auto owned = Own<std::remove_pointer_t<Parameter>>::Take(value);
    return value ? "object" : "null";
  } else {
    return std::to_string(value);
  }
}

template <class Result>
Result Given() {
  if constexpr (std::is_void_v<Result>) {
    return;
  } else if constexpr (std::is_same_v<Result, cef_string_userfree_t>) {
    return record.gives ? fake_cef::NewUserFree(u"5") : nullptr;
  } else if constexpr (std::is_pointer_v<Result>) {
    return record.gives ? new PlainObject<std::remove_pointer_t<Result>> : nullptr;
  } else {
    return static_cast<Result>(record.gives ? 5 : 0);
  }
}

template <auto Slot, class = decltype(Slot)>
struct Recorder;
template <auto Slot, class Struct, class Result, class... Parameters>
struct Recorder<Slot, Result (*Struct::*)(Struct*, Parameters...)> {
  static Result Run(Struct*, Parameters... parameters) {
    ++record.calls;
    ((record.arguments += Received(parameters) + " "), ...);
    return Given<Result>();
  }
};

template <class Result>
std::string Content(const Result& result) {
  constexpr bool kIsNumber = std::is_arithmetic_v<Result> && !std::is_same_v<Result, bool>;
  if constexpr (kIsNumber || std::is_enum_v<Result>) {
    const auto number = static_cast<int>(result);
    return number == 5 ? "something" : number == 0 ? "nothing" : std::to_string(number);
  } else if constexpr (std::is_same_v<Result, CefString>) {
    return result == "5" ? "something" : result.empty() ? "nothing" : result.ToString();
  } else {
    return result ? "something" : "nothing";
  }
}

template <class Class, auto Slot, class Call>
void CheckSlot(Call call, const char* arguments) {
  for (const bool gives : {true, false}) {
    record = Record{gives, 0, {}};
    const auto fake = Make<PlainObject<typename Class::StructType>>();
    (*fake).*Slot = &Recorder<Slot>::Run;
    const auto object = cef_binding::Adopt<Class>(fake.Give());
    if constexpr (std::is_void_v<decltype(call(*object))>) {
      call(*object);
    } else {
      EXPECT_EQ(Content(call(*object)), gives ? "something" : "nothing");
    }
    EXPECT_EQ(record.calls, 1);
    EXPECT_EQ(record.arguments, arguments);
    EXPECT_EQ(fake->references(), 2);
  }
}

// Returns an object to pass as an argument.
template <class Class>
CefRefPtr<Class> Some() {
  return cef_binding::Adopt<Class>(Make<PlainObject<typename Class::StructType>>().Give());
}

struct SlotCase {
  const char* name;
  std::function<void()> check;
};

#define SLOT(Class, slot, call, arguments)                                                     \
  SlotCase {                                                                                   \
#Class "::" #call, [] {                                                                      \
      CheckSlot<Class, &Class::StructType::slot>([](Class& object) { return object.call; },      \
                                                 arguments);                                     \
    } \
  }

const SlotCase kSlots[] = {
    SLOT(CefBrowser, get_host, GetHost(), ""),
    SLOT(CefBrowser, go_back, GoBack(), ""),
    SLOT(CefBrowser, go_forward, GoForward(), ""),
    SLOT(CefBrowser, reload, Reload(), ""),
    SLOT(CefBrowser, get_identifier, GetIdentifier(), ""),
    SLOT(CefBrowser, is_popup, IsPopup(), ""),
    SLOT(CefBrowser, get_main_frame, GetMainFrame(), ""),
    SLOT(CefBrowser, send_process_message,
         SendProcessMessage(PID_RENDERER, Some<CefProcessMessage>()), "1 object "),
    SLOT(CefBrowserHost, close_browser, CloseBrowser(true), "1 "),
    SLOT(CefBrowserHost, close_browser, CloseBrowser(false), "0 "),
    SLOT(CefBrowserHost, is_window_rendering_disabled, IsWindowRenderingDisabled(), ""),
    SLOT(CefBrowserHost, was_resized, WasResized(), ""),
    SLOT(CefBrowserHost, invalidate, Invalidate(PET_POPUP), "1 "),
    SLOT(CefCommandLine, has_switch, HasSwitch("name"), "\"name\" "),
    SLOT(CefCommandLine, get_switch_value, GetSwitchValue("name"), "\"name\" "),
    SLOT(CefCommandLine, append_switch, AppendSwitch("name"), "\"name\" "),
    SLOT(CefCommandLine, append_switch_with_value, AppendSwitchWithValue("name", "value"),
         "\"name\" \"value\" "),
    SLOT(CefCookieManager, set_supported_schemes, SetSupportedSchemes({"a", "b"}, nullptr),
         "a,b, null "),
    SLOT(CefCookieManager, set_supported_schemes, SetSupportedSchemes({}, nullptr), " null "),
    SLOT(CefDictionaryValue, set_int, SetInt("key", -3), "\"key\" -3 "),
    SLOT(CefFrame, load_url, LoadURL("file:///a"), "\"file:///a\" "),
    SLOT(CefFrame, is_main, IsMain(), ""),
    SLOT(CefFrame, get_url, GetURL(), ""),
    SLOT(CefListValue, set_size, SetSize(9), "9 "),
    SLOT(CefListValue, get_size, GetSize(), ""),
    SLOT(CefListValue, get_type, GetType(1), "1 "),
    SLOT(CefListValue, get_value, GetValue(2), "2 "),
    SLOT(CefListValue, get_bool, GetBool(3), "3 "),
    SLOT(CefListValue, get_int, GetInt(4), "4 "),
    SLOT(CefListValue, get_double, GetDouble(5), "5 "),
    SLOT(CefListValue, get_string, GetString(6), "6 "),
    SLOT(CefListValue, get_list, GetList(7), "7 "),
    SLOT(CefListValue, set_value, SetValue(1, Some<CefValue>()), "1 object "),
    SLOT(CefListValue, set_null, SetNull(2), "2 "),
    SLOT(CefListValue, set_bool, SetBool(3, true), "3 1 "),
    SLOT(CefListValue, set_bool, SetBool(3, false), "3 0 "),
    SLOT(CefListValue, set_int, SetInt(4, -8), "4 -8 "),
    SLOT(CefListValue, set_double, SetDouble(5, 0.5), "5 0.500000 "),
    SLOT(CefListValue, set_string, SetString(6, "text"), "6 \"text\" "),
    SLOT(CefListValue, set_string, SetString(6, ""), "6 \"\" "),
    SLOT(CefListValue, set_binary, SetBinary(7, Some<CefBinaryValue>()), "7 object "),
    SLOT(CefListValue, set_dictionary, SetDictionary(8, Some<CefDictionaryValue>()), "8 object "),
    SLOT(CefListValue, set_list, SetList(9, Some<CefListValue>()), "9 object "),
    SLOT(CefProcessMessage, get_name, GetName(), ""),
    SLOT(CefProcessMessage, get_argument_list, GetArgumentList(), ""),
    SLOT(CefValue, set_list, SetList(Some<CefListValue>()), "object "),
    SLOT(CefV8Context, get_browser, GetBrowser(), ""),
    SLOT(CefV8Context, enter, Enter(), ""),
    SLOT(CefV8Context, exit, Exit(), ""),
    SLOT(CefV8Context, is_same, IsSame(Some<CefV8Context>()), "object "),
    SLOT(CefV8Value, is_bool, IsBool(), ""),
    SLOT(CefV8Value, is_int, IsInt(), ""),
    SLOT(CefV8Value, is_double, IsDouble(), ""),
    SLOT(CefV8Value, is_string, IsString(), ""),
    SLOT(CefV8Value, is_array, IsArray(), ""),
    SLOT(CefV8Value, is_function, IsFunction(), ""),
    SLOT(CefV8Value, get_bool_value, GetBoolValue(), ""),
    SLOT(CefV8Value, get_int_value, GetIntValue(), ""),
    SLOT(CefV8Value, get_double_value, GetDoubleValue(), ""),
    SLOT(CefV8Value, get_string_value, GetStringValue(), ""),
    SLOT(CefV8Value, get_value_bykey, GetValue("key"), "\"key\" "),
    SLOT(CefV8Value, get_value_byindex, GetValue(3), "3 "),
    SLOT(CefV8Value, get_value_byindex, GetValue(0), "0 "),
    SLOT(CefV8Value, set_value_bykey,
         SetValue("key", Some<CefV8Value>(), V8_PROPERTY_ATTRIBUTE_NONE), "\"key\" object 0 "),
    SLOT(CefV8Value, set_value_byindex, SetValue(4, Some<CefV8Value>()), "4 object "),
    SLOT(CefV8Value, set_value_byindex, SetValue(0, Some<CefV8Value>()), "0 object "),
    SLOT(CefV8Value, get_array_length, GetArrayLength(), ""),
};

void PrintTo(const SlotCase& slot, std::ostream* out) { *out << slot.name; }

class LibrarySlotTest : public fake_cef::FakeCefTest,
                        public testing::WithParamInterface<SlotCase> {};

TEST_P(LibrarySlotTest, CallsSlot) { GetParam().check(); }

INSTANTIATE_TEST_SUITE_P(All, LibrarySlotTest, testing::ValuesIn(kSlots));

// Tests the only slot that takes an array of objects.
class ExecuteFunctionTest : public fake_cef::FakeCefTest {
 protected:
  static cef_v8value_t* Run(cef_v8value_t*, cef_v8context_t* context, cef_v8value_t* object,
                            std::size_t count, cef_v8value_t* const* arguments) {
    record.arguments = Received(context) + " " + Received(object) + " " + std::to_string(count);
    for (std::size_t i = 0; i < count; ++i) {
      record.arguments += " " + Received(arguments[i]);
    }
    return Given<cef_v8value_t*>();
  }

  static std::string Execute(const CefRefPtr<CefV8Context>& context,
                             const CefRefPtr<CefV8Value>& object, const CefV8ValueList& arguments) {
    const auto fake = Make<PlainObject<cef_v8value_t>>();
    fake->execute_function_with_context = &Run;
    const auto function = cef_binding::Adopt<CefV8Value>(fake.Give());
    const auto result = function->ExecuteFunctionWithContext(context, object, arguments);
    return record.arguments + " -> " + Content(result);
  }
};

TEST_F(ExecuteFunctionTest, PassesEachArgumentWithReference) {
  record = Record();
  EXPECT_EQ(Execute(Some<CefV8Context>(), nullptr, {}), "object null 0 -> something");
  const auto one = Some<CefV8Value>();
  EXPECT_EQ(
      Execute(Some<CefV8Context>(), Some<CefV8Value>(), {one, one, nullptr, Some<CefV8Value>()}),
      "object object 4 object object null object -> something");
}

TEST_F(ExecuteFunctionTest, ReturnsNullWhenFunctionThrows) {
  record = Record{false, 0, {}};
  EXPECT_EQ(Execute(Some<CefV8Context>(), nullptr, {Some<CefV8Value>()}),
            "object null 1 object -> nothing");
}

}  // namespace
