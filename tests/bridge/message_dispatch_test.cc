// Tests the dispatch of messages to the callbacks of pages.

#include <gtest/gtest.h>

#include "bridge/message_callbacks.h"
#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::Element;
using fake_cef::FakeBrowser;
using fake_cef::FakeList;
using fake_cef::FakeMessage;
using fake_cef::FakeV8Context;
using fake_cef::Function;
using fake_cef::library;
using fake_cef::Make;
using fake_cef::Own;

class MessageDispatchTest : public fake_cef::FakeCefTest {
 protected:
  // Registers `body` in a context that counts how often it is entered and exited.
  void Register(const std::string& name, int browser, std::function<Value(const Arguments&)> body) {
    registry_->SetMessageCallback(name, browser, Wrapped(context_),
                                  Wrapped(Script(Function{std::move(body)})));
  }
  // Registers a callback that records its call in `calls_` and returns true.
  void RegisterRecorder(const std::string& name, int browser, const std::string& note) {
    Register(name, browser, [this, note](const Arguments& arguments) {
      calls_ += note;
      for (const auto* argument : arguments)
        calls_ += " " + argument->Text();
      return Script(true);
    });
  }

  static Own<FakeMessage> Message(std::u16string name, std::vector<Element> elements = {}) {
    return Make<FakeMessage>(std::move(name), Make<FakeList>(std::move(elements)));
  }
  bool Dispatch(int browser, const Own<FakeMessage>& message) {
    return registry_->DispatchMessage(Wrapped(Make<FakeBrowser>(browser)), Wrapped(message));
  }

  // The context must be exited as often as it is entered, before code of a page or of a test runs.
  void ExpectExited() const { EXPECT_EQ(context_->entered, context_->exited); }

  void TearDown() override {
    registry_ = nullptr;
    context_ = nullptr;
    FakeCefTest::TearDown();
  }

  Own<FakeV8Context> context_ = Make<FakeV8Context>(1, nullptr);
  CefRefPtr<Registry> registry_ = new Registry;
  std::string calls_;
};

TEST_F(MessageDispatchTest, PassesNameAndArguments) {
  RegisterRecorder("a", 1, "called");
  EXPECT_TRUE(Dispatch(1, Message(u"a", {7, std::u16string(u"s"), Element()})));
  EXPECT_EQ(calls_, "called \"a\" [7,\"s\",null]");
  ExpectExited();
}

TEST_F(MessageDispatchTest, PassesEmptyArrayForEmptyList) {
  RegisterRecorder("a", 1, "called");
  EXPECT_TRUE(Dispatch(1, Message(u"a")));
  EXPECT_EQ(calls_, "called \"a\" []");
}

TEST_F(MessageDispatchTest, PassesEmptyArrayWithoutList) {
  RegisterRecorder("a", 1, "called");
  EXPECT_TRUE(Dispatch(1, Make<FakeMessage>(u"a", nullptr)));
  EXPECT_EQ(calls_, "called \"a\" []");
  ExpectExited();
}

TEST_F(MessageDispatchTest, FindsNameInUtf8AndPassesNameUnchanged) {
  RegisterRecorder("\xC3\xA4\xEF\xBF\xBD", 1, "called");
  std::u16string seen;
  Register("\xEF\xBF\xBD", 1, [&](const Arguments& arguments) {
    seen = arguments[0]->text();
    return Script(true);
  });
  EXPECT_TRUE(Dispatch(1, Message(u"\u00E4\uFFFD")));
  const std::u16string lone(1, char16_t{0xD834});
  EXPECT_TRUE(Dispatch(1, Message(lone)));
  EXPECT_EQ(seen, lone);
}

TEST_F(MessageDispatchTest, RunsOnlyCallbackOfReceivingBrowser) {
  RegisterRecorder("a", 1, "one");
  RegisterRecorder("a", 2, "two");
  EXPECT_TRUE(Dispatch(2, Message(u"a")));
  EXPECT_EQ(calls_, "two \"a\" []");
}

TEST_F(MessageDispatchTest, EntersNoContextWithoutEntry) {
  EXPECT_FALSE(Dispatch(1, Message(u"a")));
  RegisterRecorder("a", 1, "called");
  EXPECT_FALSE(Dispatch(1, Message(u"A")));
  EXPECT_FALSE(Dispatch(1, Message(u"")));
  EXPECT_FALSE(Dispatch(1, Message(u"ab")));
  EXPECT_FALSE(Dispatch(2, Message(u"a")));
  EXPECT_EQ(calls_, "");
  EXPECT_EQ(context_->entered, 0);
}

TEST_F(MessageDispatchTest, DoesNotHandleNullBrowserOrMessage) {
  RegisterRecorder("a", 1, "called");
  EXPECT_FALSE(registry_->DispatchMessage(nullptr, Wrapped(Message(u"a"))));
  EXPECT_FALSE(registry_->DispatchMessage(Wrapped(Make<FakeBrowser>(1)), nullptr));
  EXPECT_EQ(calls_, "");
  EXPECT_EQ(context_->entered, 0);
}

TEST_F(MessageDispatchTest, HandlesOnlyIfCallbackReturnsTrue) {
  const struct {
    Value result;
    bool handled;
  } kCases[] = {
      {Script(true), true},
      {Script(false), false},
      {Script(1), false},
      {Script(1.0), false},
      {ScriptString(u"true"), false},
      {Script(fake_cef::Object{}), false},
      {ScriptArray({Script(true)}), false},
      {Script(Function{}), false},
      {Script(fake_cef::Null{}), false},
      {Script(fake_cef::Undefined{}), false},
      {Value(), false},  // the callback threw
  };
  for (const auto& [result, handled] : kCases) {
    Register("a", 1, [value = result](const Arguments&) { return value; });
    EXPECT_EQ(Dispatch(1, Message(u"a")), handled) << (result ? result->Text() : "thrown");
    ExpectExited();
    registry_->RemoveMessageCallback("a", 1);
  }
}

TEST_F(MessageDispatchTest, DoesNotExitContextThatCannotBeEntered) {
  RegisterRecorder("a", 1, "called");
  context_->can_enter = false;
  EXPECT_FALSE(Dispatch(1, Message(u"a")));
  EXPECT_EQ(calls_, "");
  ExpectExited();
}

TEST_F(MessageDispatchTest, DoesNotHandleEntryWithoutContextOrFunction) {
  registry_->SetMessageCallback("a", 1, nullptr, Wrapped(Script(Function{})));
  registry_->SetMessageCallback("b", 1, Wrapped(context_), nullptr);
  EXPECT_FALSE(Dispatch(1, Message(u"a")));
  EXPECT_FALSE(Dispatch(1, Message(u"b")));
  EXPECT_EQ(context_->entered, context_->exited);
  EXPECT_EQ(context_->executed, 0);
}

TEST_F(MessageDispatchTest, DoesNotHandleIfArgumentsCannotBeCreated) {
  RegisterRecorder("a", 1, "called");
  // Both the array and the name, then the array alone.
  library().gives_nothing = true;
  EXPECT_FALSE(Dispatch(1, Message(u"a")));
  library().gives_nothing = false;
  library().allows_array = [](int) { return false; };
  EXPECT_FALSE(Dispatch(1, Message(u"a")));
  EXPECT_EQ(calls_, "");
  ExpectExited();
}

// A callback that removes its own frame ends the context, which then cannot be exited.
TEST_F(MessageDispatchTest, RunsCallbackWithoutEnteringContext) {
  Register("a", 1, [this](const Arguments&) {
    ExpectExited();
    context_->can_enter = false;
    return Script(true);
  });
  EXPECT_TRUE(Dispatch(1, Message(u"a")));
  ExpectExited();
  EXPECT_EQ(library().entered_contexts, 0);
}

TEST_F(MessageDispatchTest, ContextCanEndDuringConversion) {
  RegisterRecorder("a", 1, "called");
  library().allows_array = [this](int) {
    ExpectExited();
    context_->can_enter = false;
    registry_->RemoveCallbacksOf(Wrapped(context_));
    return true;
  };
  EXPECT_FALSE(Dispatch(1, Message(u"a")));
  EXPECT_EQ(calls_, "");
  ExpectExited();
}

TEST_F(MessageDispatchTest, CallbackCanRemoveOwnEntry) {
  Register("a", 1, [this](const Arguments& arguments) {
    EXPECT_TRUE(registry_->RemoveMessageCallback("a", 1));
    return Script(arguments[0]->Text() == "\"a\"");
  });
  EXPECT_TRUE(Dispatch(1, Message(u"a")));
  EXPECT_FALSE(Dispatch(1, Message(u"a")));
  ExpectExited();
}

TEST_F(MessageDispatchTest, CallbackCanReplaceOwnEntry) {
  Register("a", 1, [this](const Arguments&) {
    registry_->RemoveMessageCallback("a", 1);
    RegisterRecorder("a", 1, "second");
    return Script(true);
  });
  EXPECT_TRUE(Dispatch(1, Message(u"a")));
  EXPECT_EQ(calls_, "");
  EXPECT_TRUE(Dispatch(1, Message(u"a")));
  EXPECT_EQ(calls_, "second \"a\" []");
  ExpectExited();
}

TEST_F(MessageDispatchTest, CallbackCanLoseContext) {
  Register("a", 1, [this](const Arguments&) {
    registry_->RemoveCallbacksOf(Wrapped(context_));
    return Script(true);
  });
  EXPECT_TRUE(Dispatch(1, Message(u"a")));
  EXPECT_TRUE(registry_->callbackMap.empty());
  ExpectExited();
}

TEST_F(MessageDispatchTest, CallbackCanEndRegistry) {
  Register("a", 1, [this](const Arguments&) {
    registry_ = nullptr;
    return Script(true);
  });
  EXPECT_TRUE(Dispatch(1, Message(u"a")));
  ExpectExited();
}

TEST_F(MessageDispatchTest, CallbackCanDispatchAnotherMessage) {
  RegisterRecorder("b", 1, "inner");
  Register("a", 1, [this](const Arguments&) { return Script(Dispatch(1, Message(u"b"))); });
  EXPECT_TRUE(Dispatch(1, Message(u"a")));
  EXPECT_EQ(calls_, "inner \"b\" []");
  ExpectExited();
}

}  // namespace
