// Tests the native functions through the handler that is registered with CEF.

#include "bridge/app_extension.h"

#include <gtest/gtest.h>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::FakeBrowser;
using fake_cef::FakeV8Context;
using fake_cef::Function;
using fake_cef::library;
using fake_cef::Make;
using fake_cef::Null;
using fake_cef::Object;
using fake_cef::Own;
using fake_cef::Undefined;

constexpr char kBadArguments[] = "Invalid method arguments";

class AppExtensionTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    browser_ = Make<FakeBrowser>(7);
    library().current_context = Make<FakeV8Context>(1, browser_);
    RegisterAppExtension(registry_, ArrayPacking::Register({}));
  }
  void TearDown() override {
    registry_ = nullptr;
    browser_ = nullptr;
    FakeCefTest::TearDown();
  }

  // Returns the text of the result, "unset" without a result, or "throws " and the exception.
  static std::string Call(const std::string& name, const std::vector<Value>& arguments) {
    const NativeResult result = CallNative(library().extensions.back(), name, arguments);
    if (result.exception.empty()) return result.value ? result.value->Text() : "unset";
    EXPECT_FALSE(result.value);
    return "throws " + result.exception;
  }

  // Returns "name[arguments] " for each message that was sent to the browser process.
  std::string Sent() const {
    std::string sent;
    for (const auto& [target, message] : browser_->sent) {
      EXPECT_EQ(target, PID_BROWSER);
      sent += fake_cef::ToUtf8(message->name()) + message->list().Text() + " ";
    }
    return sent;
  }

  Own<FakeBrowser> browser_;
  CefRefPtr<Registry> registry_ = new Registry;
};
using AppExtensionDeathTest = AppExtensionTest;

TEST_F(AppExtensionTest, HoldsReferenceToRegistry) {
  EXPECT_EQ(library().extensions.back().name, u"v8/app");
  EXPECT_EQ(library().extensions.back().source, fake_cef::ToUtf16(kAppExtensionSource));
  EXPECT_FALSE(registry_->HasOneRef());
  library().extensions.back().handler = nullptr;
  EXPECT_TRUE(registry_->HasOneRef());
}

TEST_F(AppExtensionTest, RejectsInvalidArguments) {
  const Value name = ScriptString(u"x");
  const Value function = Script(Function{});
  const Value array = ScriptArray({});
  const struct {
    const char* function;
    std::vector<Value> arguments;
  } kCases[] = {
      {"sendMessage", {}},
      {"sendMessage", {name, array, array}},
      {"sendMessage", {Script(5), array}},
      {"sendMessage", {Script(Undefined{})}},
      {"sendMessage", {array}},
      {"sendMessage", {ScriptString(u"")}},
      {"sendMessage", {ScriptString(u""), array}},
      {"sendMessage", {Value()}},
      {"setMessageCallback", {}},
      {"setMessageCallback", {name}},
      {"setMessageCallback", {name, Script(Undefined{})}},
      {"setMessageCallback", {name, Script(Object{})}},
      {"setMessageCallback", {name, array}},
      {"setMessageCallback", {name, Value()}},
      {"setMessageCallback", {Value(), function}},
      {"setMessageCallback", {Script(1), function}},
      {"setMessageCallback", {function, name}},
      {"setMessageCallback", {name, function, function}},
      {"removeMessageCallback", {}},
      {"removeMessageCallback", {name, name}},
      {"removeMessageCallback", {Script(Null{})}},
      {"removeMessageCallback", {function}},
      {"removeMessageCallback", {Value()}},
      {"", {name, array}},
      {"sendmessage", {name, array}},
      {"sendMessage2", {name, array}},
      {"unknown", {name}},
  };
  Call("setMessageCallback", {name, function});
  for (const auto& [called, arguments] : kCases) {
    EXPECT_EQ(Call(called, arguments), std::string("throws ") + kBadArguments) << called;
  }
  EXPECT_EQ(Sent(), "");
  EXPECT_EQ(registry_->callbackMap.size(), 1u);
}

TEST_F(AppExtensionTest, SendMessageSendsElementsOfArray) {
  EXPECT_EQ(Call("sendMessage", {ScriptString(u"x"), ScriptArray({Script(1), Script(Null{})})}),
            "unset");
  EXPECT_EQ(Call("sendMessage", {ScriptString(u"\u00E4"), ScriptArray({})}), "unset");
  EXPECT_EQ(Sent(), "x[1,null] \xC3\xA4[] ");
}

TEST_F(AppExtensionTest, SendMessageSendsNameUnchanged) {
  const std::u16string name = {u'a', u'\0', 0xD834};
  EXPECT_EQ(Call("sendMessage", {ScriptString(name)}), "unset");
  ASSERT_EQ(browser_->sent.size(), 1u);
  EXPECT_EQ(browser_->sent[0].second->name(), name);
}

TEST_F(AppExtensionTest, SendMessageIgnoresArgumentsOtherThanArray) {
  const Value others[] = {Script(Undefined{}), Script(Null{}),     Script(Object{}),
                          ScriptString(u"s"),  Script(1),          Script(2.5),
                          Script(true),        Script(Function{}), Value()};
  std::string expected;
  for (const Value& other : others) {
    EXPECT_EQ(Call("sendMessage", {ScriptString(u"x"), other}), "unset");
    expected += "x[] ";
  }
  EXPECT_EQ(Call("sendMessage", {ScriptString(u"x")}), "unset");
  EXPECT_EQ(Sent(), expected + "x[] ");
}

TEST_F(AppExtensionTest, SetMessageCallbackUsesCurrentContextAndBrowser) {
  const auto function = Script(Function{});
  EXPECT_EQ(Call("setMessageCallback", {ScriptString(u"\u00E4"), function}), "unset");
  EXPECT_EQ(function->references(), 2);
  ASSERT_EQ(registry_->callbackMap.size(), 1u);
  const auto& [key, entry] = *registry_->callbackMap.begin();
  EXPECT_EQ(key, MessageCallbackKey("\xC3\xA4", 7));
  EXPECT_TRUE(entry.first->IsSame(Wrapped(Make<FakeV8Context>(1, nullptr))));
}

TEST_F(AppExtensionTest, SetMessageCallbackKeepsFirstRegistrationSilently) {
  const auto first = Script(Function{});
  const auto second = Script(Function{});
  EXPECT_EQ(Call("setMessageCallback", {ScriptString(u"x"), first}), "unset");
  EXPECT_EQ(Call("setMessageCallback", {ScriptString(u"x"), second}), "unset");
  EXPECT_EQ(first->references(), 2);
  EXPECT_EQ(second->references(), 1);
}

TEST_F(AppExtensionTest, RemoveMessageCallbackReturnsWhetherCallbackExisted) {
  Call("setMessageCallback", {ScriptString(u"x"), Script(Function{})});
  EXPECT_EQ(Call("removeMessageCallback", {ScriptString(u"X")}), "false");
  EXPECT_EQ(Call("removeMessageCallback", {ScriptString(u"x")}), "true");
  EXPECT_EQ(Call("removeMessageCallback", {ScriptString(u"x")}), "false");
}

TEST_F(AppExtensionTest, RemoveMessageCallbackKeepsCallbacksOfOtherBrowsers) {
  Call("setMessageCallback", {ScriptString(u"x"), Script(Function{})});
  library().current_context = Make<FakeV8Context>(2, Make<FakeBrowser>(8));
  EXPECT_EQ(Call("removeMessageCallback", {ScriptString(u"x")}), "false");
  EXPECT_EQ(registry_->callbackMap.size(), 1u);
}

TEST_F(AppExtensionTest, RegistersAndRemovesEmptyName) {
  EXPECT_EQ(Call("removeMessageCallback", {ScriptString(u"")}), "false");
  EXPECT_EQ(Call("setMessageCallback", {ScriptString(u""), Script(Function{})}), "unset");
  EXPECT_EQ(Call("removeMessageCallback", {ScriptString(u"")}), "true");
}

// The page is being removed: there is no context, or the context has no browser.
TEST_F(AppExtensionTest, CallsHaveNoEffectWithoutBrowser) {
  Call("setMessageCallback", {ScriptString(u"x"), Script(Function{})});
  for (const bool has_context : {false, true}) {
    library().current_context = has_context ? Make<FakeV8Context>(1, nullptr) : nullptr;
    EXPECT_EQ(Call("sendMessage", {ScriptString(u"x"), ScriptArray({Script(1)})}), "unset");
    EXPECT_EQ(Call("setMessageCallback", {ScriptString(u"y"), Script(Function{})}), "unset");
    EXPECT_EQ(Call("removeMessageCallback", {ScriptString(u"x")}), "false");
    EXPECT_EQ(Call("sendMessage", {ScriptString(u"")}), std::string("throws ") + kBadArguments);
    EXPECT_EQ(Call("sendMessage", {}), std::string("throws ") + kBadArguments);
  }
  EXPECT_EQ(Sent(), "");
  EXPECT_EQ(registry_->callbackMap.size(), 1u);
}

TEST_F(AppExtensionTest, SendsNothingIfMessageCannotBeCreated) {
  library().gives_nothing = true;
  EXPECT_EQ(Call("sendMessage", {ScriptString(u"x"), ScriptArray({Script(1)})}), "unset");
  EXPECT_EQ(Call("removeMessageCallback", {ScriptString(u"x")}), "unset");
  EXPECT_EQ(Sent(), "");
}

TEST_F(AppExtensionDeathTest, RequiresRendererThread) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  library().currently_on = [](cef_thread_id_t thread) { return thread != TID_RENDERER; };
  EXPECT_DEBUG_DEATH(Call("sendMessage", {}), "TID_RENDERER");
}

}  // namespace
