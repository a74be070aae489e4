// Tests the native half. Functions of this file replace those of the script, which is tested in a
// real Chromium (tests/e2e/packing_test.cc).

#include "bridge/array_packing.h"

#include <gtest/gtest.h>
#include <functional>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::Array;
using fake_cef::Element;
using fake_cef::FakeList;
using fake_cef::FakeV8Context;
using fake_cef::Function;
using fake_cef::library;
using fake_cef::Make;
using fake_cef::Null;
using fake_cef::Object;
using fake_cef::Own;
using fake_cef::Undefined;

class ArrayPackingTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    packing_ = ArrayPacking::Register({3, 3});
    context_ = Make<FakeV8Context>(1, nullptr);
    RunScript(context_);
  }
  void TearDown() override {
    packing_ = nullptr;
    context_ = nullptr;
    packed_ = nullptr;
    result_ = nullptr;
    FakeCefTest::TearDown();
  }

  static Value Call(const std::string& name, const std::vector<Value>& arguments) {
    const NativeResult result = CallNative(library().extensions.front(), name, arguments);
    EXPECT_EQ(result.exception, "");
    return result.value;
  }

  // Returns the script's object, which records the values that native code sets and returns
  // `packed_`.
  Value PackingObject() {
    const auto get = [this](const std::u16string& key) {
      calls_ += fake_cef::ToUtf8(key) + ";";
      return packed_;
    };
    const auto set = [this](const std::u16string& key, Value value) {
      calls_ += fake_cef::ToUtf8(key) + " " + value->Text() + ";";
    };
    return Script(Object{get, set});
  }

  Value Caller(const char* name) {
    return Script(Function{[this, name](const Arguments& arguments) {
      calls_ += name;
      for (const auto* argument : arguments)
        calls_ += " " + argument->Text();
      calls_ += ";";
      return result_;
    }});
  }

  // Does the same as the script in each new context.
  void RunScript(const Own<FakeV8Context>& context) {
    library().current_context = context;
    Call("keep", {PackingObject(), Caller("elements"), Caller("text")});
  }

  std::string Copied(const Value& array) {
    const auto list = Make<FakeList>();
    packing_->CopyToList(Wrapped(array), Wrapped(list));
    return list->Text();
  }

  // Returns "true" or "false" as the callback does, or "refused" if it is not called.
  std::string CalledBack(std::vector<Element> elements, const Own<FakeV8Context>& context) {
    const auto list = Make<FakeList>(std::move(elements));
    bool returned_true = false;
    if (!packing_->RunCallback(Wrapped(context), Wrapped(Script(Function{})), "name", Wrapped(list),
                               returned_true)) {
      return "refused";
    }
    return returned_true ? "true" : "false";
  }
  std::string CalledBack(std::vector<Element> elements) {
    return CalledBack(std::move(elements), context_);
  }

  CefRefPtr<ArrayPacking> packing_;
  Own<FakeV8Context> context_;
  Value packed_ = ScriptString({2, 0, 0, 0});  // an empty array
  Value result_ = Script(true);
  std::string calls_;
};

Element Binary() { return Own<cef_binary_value_t>(Make<fake_cef::FakeBinary>("b")); }
Element Dictionary() { return Own<cef_dictionary_value_t>(Make<fake_cef::FakeDictionary>()); }

Value Three() { return ScriptArray({Script(1), Script(2), Script(3)}); }

TEST_F(ArrayPackingTest, ScriptDeclaresNativeFunctions) {
  EXPECT_EQ(library().extensions.front().name, u"v8/array-packing");
  const std::u16string& source = library().extensions.front().source;
  for (const char16_t* text :
       {u"native function keep();", u"native function areArrays();", u"keep(packing, "}) {
    EXPECT_NE(source.find(text), std::u16string::npos) << fake_cef::ToUtf8(text);
  }
}

TEST_F(ArrayPackingTest, PacksArraysFromBreakEven) {
  packed_ = ScriptString({3, 0, 1, 0, 2});
  EXPECT_EQ(Copied(Three()), "[true]");
  EXPECT_EQ(calls_, "array [1,2,3];packed;");
  EXPECT_EQ(Copied(ScriptArray({Script(1), Script(2)})), "[1,2]");
  EXPECT_EQ(calls_, "array [1,2,3];packed;");
}

TEST_F(ArrayPackingTest, CopiesRefusedArraysElementByElement) {
  for (const Value& refusal : {Script(Undefined{}), Value(), Script(Null{}), Script(7)}) {
    packed_ = refusal;
    EXPECT_EQ(Copied(Three()), "[1,2,3]");
  }
}

TEST_F(ArrayPackingTest, PacksLargeArraysInSmallOnes) {
  packed_ = ScriptString({3, 0, 1, 0, 2});
  EXPECT_EQ(Copied(ScriptArray({Script(1), Three()})), "[1,[true]]");
}

TEST_F(ArrayPackingTest, StopsPackingAfterRefusal) {
  packed_ = Value();
  EXPECT_EQ(Copied(ScriptArray({Three(), Three(), Script(4)})), "[[1,2,3],[1,2,3],4]");
  EXPECT_EQ(calls_, "array [[1,2,3],[1,2,3],4];packed;");
}

TEST_F(ArrayPackingTest, DoesNotPackArraysOfNegativeLength) {
  EXPECT_EQ(Copied(Script(Array{{Script(7)}, -1})), "[]");
  EXPECT_EQ(calls_, "");
}

TEST_F(ArrayPackingTest, DoesNotPackIntoListsWithElements) {
  const auto list = Make<FakeList>(std::vector<Element>{true});
  packing_->CopyToList(Wrapped(Three()), Wrapped(list));
  EXPECT_EQ(list->Text(), "[1,2,3]");
  EXPECT_EQ(calls_, "");
}

TEST_F(ArrayPackingTest, DoesNotPackWhereScriptHasNotRun) {
  library().current_context = Make<FakeV8Context>(2, nullptr);
  EXPECT_EQ(Copied(Three()), "[1,2,3]");
  library().current_context = nullptr;
  EXPECT_EQ(Copied(Three()), "[1,2,3]");
  EXPECT_EQ(calls_, "");
}

TEST_F(ArrayPackingTest, CallsBackWithFewElements) {
  EXPECT_EQ(CalledBack({1, -0.0, std::u16string(u"s"), true, Element(), Binary(), Dictionary(), 8}),
            "true");
  EXPECT_EQ(calls_,
            "elements function \"name\" 1 -0.0000000000000000 \"s\" true null null null 8;");
  calls_.clear();
  EXPECT_EQ(CalledBack({1, 2, 3}), "true");
  EXPECT_EQ(calls_, "elements function \"name\" 1 2 3;");
}

TEST_F(ArrayPackingTest, CallsBackWithTextOfManyElements) {
  EXPECT_EQ(CalledBack(std::vector<Element>(9, 7)), "true");
  EXPECT_EQ(calls_, "text function \"name\" \"[7,7,7,7,7,7,7,7,7]\";");
  calls_.clear();
  EXPECT_EQ(CalledBack({0, 1, 2, 3, 4, 5, 6, 7, -0.0}), "true");
  EXPECT_EQ(calls_, "text function \"name\" \"[0,1,2,3,4,5,6,7,{}]\" \"[0,-2147483648]\";");
}

TEST_F(ArrayPackingTest, CallsBackWithTextOfNestedElements) {
  EXPECT_EQ(CalledBack({1, Own<cef_list_value_t>(Make<FakeList>(std::vector<Element>{4})), 2}),
            "true");
  EXPECT_EQ(calls_, "text function \"name\" \"[1,[4],2]\";");
}

TEST_F(ArrayPackingTest, OnlyTrueCountsAsReturned) {
  const struct {
    Value result;
    const char* outcome;
  } kCases[] = {
      {Script(true), "true"},
      {Script(false), "false"},
      {Value(), "false"},  // the callback threw, or the context has ended
      {Script(Undefined{}), "refused"},
  };
  for (const auto& [result, outcome] : kCases) {
    result_ = result;
    EXPECT_EQ(CalledBack({1, 2, 3}), outcome);
  }
}

TEST_F(ArrayPackingTest, DoesNotCallBackBelowBreakEven) {
  EXPECT_EQ(CalledBack({1, 2}), "refused");
  EXPECT_EQ(calls_, "");
}

TEST_F(ArrayPackingTest, DoesNotCallBackWhereScriptHasNotRun) {
  EXPECT_EQ(CalledBack({1, 2, 3}, Make<FakeV8Context>(2, nullptr)), "refused");
}

TEST_F(ArrayPackingTest, CallsNothingInEndedContext) {
  context_->can_enter = false;
  EXPECT_EQ(CalledBack({1, 2, 3}), "false");
  EXPECT_EQ(calls_, "");
}

TEST_F(ArrayPackingTest, DoesNotCallBackWithoutValues) {
  const auto few = Make<FakeList>(std::vector<Element>{1, 2, 3});
  const auto many = Make<FakeList>(std::vector<Element>(9, 7));
  const CefRefPtr<CefV8Value> function = Wrapped(Script(Function{}));
  library().gives_nothing = true;
  for (const auto& list : {few, many}) {
    bool returned_true = false;
    EXPECT_FALSE(
        packing_->RunCallback(Wrapped(context_), function, "name", Wrapped(list), returned_true));
  }
  EXPECT_EQ(calls_, "");
}

TEST_F(ArrayPackingTest, DoesNotEnterOrExitContexts) {
  CalledBack({1, 2, 3});
  EXPECT_EQ(context_->entered, 0);
  EXPECT_EQ(context_->exited, 0);
}

TEST_F(ArrayPackingTest, UsesObjectsOfEachContext) {
  std::vector<Own<FakeV8Context>> contexts = {context_};
  for (int i = 2; i < 6; ++i) {
    contexts.push_back(Make<FakeV8Context>(i, nullptr));
    RunScript(contexts.back());
  }
  packing_->Forget(Wrapped(contexts[2]));
  packing_->Forget(Wrapped(contexts[2]));
  for (const std::size_t left : {0U, 1U, 3U, 4U}) {
    const int before = contexts[left]->executed;
    EXPECT_EQ(CalledBack({1, 2, 3}, contexts[left]), "true");
    EXPECT_EQ(contexts[left]->executed, before + 1);
  }
  EXPECT_EQ(CalledBack({1, 2, 3}, contexts[2]), "refused");
}

TEST_F(ArrayPackingTest, ReleasesForgottenContexts) {
  const auto context = Make<FakeV8Context>(2, nullptr);
  RunScript(context);
  library().current_context = nullptr;
  EXPECT_EQ(context->references(), 2);
  packing_->Forget(Wrapped(context));
  EXPECT_EQ(context->references(), 1);
}

TEST_F(ArrayPackingTest, AreArraysRejectsOtherValues) {
  EXPECT_EQ(Call("areArrays", {})->Text(), "true");
  EXPECT_EQ(Call("areArrays", {ScriptArray({}), Three()})->Text(), "true");
  EXPECT_EQ(Call("areArrays", {ScriptArray({}), Script(Object{})})->Text(), "false");
  EXPECT_EQ(Call("areArrays", {Value()})->Text(), "false");
}

TEST_F(ArrayPackingTest, IgnoresInvalidCalls) {
  EXPECT_FALSE(Call("keep", {}));
  EXPECT_FALSE(Call("unknown", {Three()}));
}

// Calls `action` while `levels` times 4 KiB of the stack are in use.
__attribute__((noinline)) void CallDeepInStack(int levels, const std::function<void()>& action) {
  volatile char used[4096];
  for (volatile char& byte : used)
    byte = 0;
  if (levels == 0) {
    action();
  } else {
    CallDeepInStack(levels - 1, action);
  }
  used[0] = used[1];
}

TEST_F(ArrayPackingTest, DoesNotPackWithLittleStackLeft) {
  CallDeepInStack(200, [this] {
    EXPECT_EQ(Copied(Three()), "[1,2,3]");
    EXPECT_EQ(CalledBack({1, 2, 3}), "refused");
  });
  EXPECT_EQ(calls_, "");
}

}  // namespace
