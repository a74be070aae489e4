// Tests the registry as a container.

#include "bridge/message_callbacks.h"

#include <gtest/gtest.h>
#include <algorithm>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::FakeV8Context;
using fake_cef::Function;
using fake_cef::Make;
using fake_cef::Own;

class MessageCallbacksTest : public fake_cef::FakeCefTest {
 protected:
  using Context = Own<FakeV8Context>;

  static Context NewContext(int identity) { return Make<FakeV8Context>(identity, nullptr); }

  void Set(const std::string& name, int browser, const Context& context, const Value& function) {
    registry_->SetMessageCallback(name, browser, Wrapped(context), Wrapped(function));
  }
  void Set(const std::string& name, int browser, const Context& context) {
    Set(name, browser, context, Script(Function{}));
  }

  // Returns "name:browser " for each entry, in the order of the registry.
  std::string Keys() const {
    std::string keys;
    for (const auto& [key, entry] : registry_->callbackMap) {
      keys += key.first + ":" + std::to_string(key.second) + " ";
    }
    return keys;
  }

  void TearDown() override {
    registry_ = nullptr;
    FakeCefTest::TearDown();
  }

  CefRefPtr<Registry> registry_ = new Registry;
};

TEST_F(MessageCallbacksTest, StartsEmpty) {
  EXPECT_EQ(Keys(), "");
  EXPECT_FALSE(registry_->RemoveMessageCallback("a", 1));
  registry_->RemoveCallbacksOf(Wrapped(NewContext(1)));
}

TEST_F(MessageCallbacksTest, OrdersKeysByBytesOfNameThenBrowser) {
  const auto context = NewContext(1);
  for (const char* name : {"\xC3\xA4", "b", "ab", "a", "", "\x7F", "B", "\xFF"}) {
    Set(name, 1, context);
  }
  Set("a", -5, context);
  Set("a", 10, context);
  Set("a", 9, context);
  Set(std::string("a\0", 2), 1, context);
  const char expected[] = ":1 B:1 a:-5 a:1 a:9 a:10 a\0:1 ab:1 b:1 \x7F:1 \xC3\xA4:1 \xFF:1 ";
  EXPECT_EQ(Keys(), std::string(expected, sizeof expected - 1));
}

TEST_F(MessageCallbacksTest, HoldsOneReferenceToContextAndFunction) {
  const auto context = NewContext(1);
  const auto function = Script(Function{});
  Set("a", 1, context, function);
  EXPECT_EQ(context->references(), 2);
  EXPECT_EQ(function->references(), 2);
  const auto& [entry_context, entry_function] = registry_->callbackMap.at({"a", 1});
  EXPECT_TRUE(entry_context->HasOneRef());
  EXPECT_TRUE(entry_function->HasOneRef());
}

TEST_F(MessageCallbacksTest, KeepsFirstRegistration) {
  const auto first = Script(Function{});
  const auto second = Script(Function{});
  const auto other_frame = NewContext(2);
  Set("a", 1, NewContext(1), first);
  Set("a", 1, other_frame, second);
  EXPECT_EQ(Keys(), "a:1 ");
  EXPECT_EQ(first->references(), 2);
  EXPECT_EQ(second->references(), 1);
  EXPECT_EQ(other_frame->references(), 1);

  EXPECT_TRUE(registry_->RemoveMessageCallback("a", 1));
  EXPECT_EQ(first->references(), 1);
  Set("a", 1, other_frame, second);
  EXPECT_EQ(second->references(), 2);
}

TEST_F(MessageCallbacksTest, RemovesExactlyOneKey) {
  const auto context = NewContext(1);
  for (const char* name : {"a", "ab", "A", ""})
    Set(name, 1, context);
  Set("a", 2, context);
  EXPECT_TRUE(registry_->RemoveMessageCallback("a", 1));
  EXPECT_FALSE(registry_->RemoveMessageCallback("a", 1));
  EXPECT_EQ(Keys(), ":1 A:1 a:2 ab:1 ");
  EXPECT_FALSE(registry_->RemoveMessageCallback("b", 1));
  EXPECT_FALSE(registry_->RemoveMessageCallback("ab", 2));
  EXPECT_TRUE(registry_->RemoveMessageCallback("", 1));
  EXPECT_EQ(Keys(), "A:1 a:2 ab:1 ");
}

TEST_F(MessageCallbacksTest, RemovesOnlyEntriesOfReleasedContext) {
  const auto gone = NewContext(1);
  const auto stays = NewContext(2);
  Set("a", 1, gone);
  Set("b", 1, stays);
  Set("c", 1, gone);
  Set("c", 2, gone);
  Set("d", 2, stays);
  Set("e", 2, gone);
  registry_->RemoveCallbacksOf(Wrapped(NewContext(1)));  // another object of the same context
  EXPECT_EQ(Keys(), "b:1 d:2 ");
  EXPECT_EQ(gone->references(), 1);
  EXPECT_EQ(stays->references(), 3);
  registry_->RemoveCallbacksOf(Wrapped(NewContext(3)));
  registry_->RemoveCallbacksOf(nullptr);
  EXPECT_EQ(Keys(), "b:1 d:2 ");
  registry_->RemoveCallbacksOf(Wrapped(stays));
  EXPECT_EQ(Keys(), "");
}

TEST_F(MessageCallbacksTest, KeepsEntriesWithoutContext) {
  registry_->SetMessageCallback("a", 1, nullptr, nullptr);
  registry_->RemoveCallbacksOf(Wrapped(NewContext(1)));
  EXPECT_EQ(Keys(), "a:1 ");
}

TEST_F(MessageCallbacksTest, ReleasesEntriesAtEnd) {
  const auto context = NewContext(1);
  const auto function = Script(Function{});
  Set("a", 1, context, function);
  Set("b", 1, context, function);
  registry_ = nullptr;
  EXPECT_EQ(context->references(), 1);
  EXPECT_EQ(function->references(), 1);
}

// However an entry is removed, its function is released first, because it belongs to the context.
TEST_F(MessageCallbacksTest, ReleasesFunctionBeforeContext) {
  const struct {
    const char* way;
    void (*end)(CefRefPtr<Registry>&);
  } kWays[] = {
      {"removed", [](CefRefPtr<Registry>& registry) { registry->RemoveMessageCallback("a", 1); }},
      {"released",
       [](CefRefPtr<Registry>& registry) { registry->RemoveCallbacksOf(Wrapped(NewContext(1))); }},
      {"destroyed", [](CefRefPtr<Registry>& registry) { registry = nullptr; }},
  };
  for (const auto& [way, end] : kWays) {
    registry_ = new Registry;
    auto context = NewContext(1);
    auto function = Script(Function{});
    const fake_cef::CountedObject* const in_order[] = {function.get(), context.get()};
    Set("a", 1, context, function);
    context = nullptr;
    function = nullptr;
    end(registry_);
    const auto ended = fake_cef::EndedObjects();
    EXPECT_NE(std::search(ended.begin(), ended.end(), std::begin(in_order), std::end(in_order)),
              ended.end())
        << way;
  }
}

}  // namespace
