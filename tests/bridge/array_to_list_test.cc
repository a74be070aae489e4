#include <gtest/gtest.h>
#include <climits>

#include "bridge/value_conversion.h"
#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::Array;
using fake_cef::Element;
using fake_cef::FakeList;
using fake_cef::Function;
using fake_cef::Make;
using fake_cef::Null;
using fake_cef::Object;
using fake_cef::Own;
using fake_cef::Undefined;

class ArrayToListTest : public fake_cef::FakeCefTest {
 protected:
  // Returns the list after the copy. `before` are its elements before the copy.
  static std::string Copied(const Value& array, std::vector<Element> before = {}) {
    const auto list = Make<FakeList>(std::move(before));
    CopyV8ArrayToList(Wrapped(array), Wrapped(list));
    return list->Text();
  }
};

TEST_F(ArrayToListTest, KeepsSupportedTypesAndReplacesOthersByNull) {
  const struct {
    fake_cef::ScriptValue element;
    const char* list;
  } kCases[] = {
      {true, "[true]"},
      {false, "[false]"},
      {0, "[0]"},
      {INT_MAX, "[2147483647]"},
      {INT_MIN, "[-2147483648]"},
      {2.5, "[2.5000000000000000]"},
      {-0.0, "[-0.0000000000000000]"},
      {1e300, "[1.0000000000000001e+300]"},
      {std::u16string(u""), "[\"\"]"},
      {std::u16string(u"a\u00E4\u20AC\U0001D11E"), "[\"a\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E\"]"},
      {Array{}, "[[]]"},
      {Null{}, "[null]"},
      {Undefined{}, "[null]"},
      {Object{}, "[null]"},
      {Function{}, "[null]"},
  };
  for (const auto& [element, list] : kCases) {
    EXPECT_EQ(Copied(ScriptArray({Script(element)})), list);
  }
}

TEST_F(ArrayToListTest, KeepsStringsUnchanged) {
  const std::u16string units = {u'a', u'\0', 0xD834, u'b', 0xDD1E};
  const auto list = Make<FakeList>();
  CopyV8ArrayToList(Wrapped(ScriptArray({ScriptString(units)})), Wrapped(list));
  ASSERT_EQ(list->elements().size(), 1u);
  EXPECT_EQ(std::get<std::u16string>(list->elements()[0]), units);
}

TEST_F(ArrayToListTest, KeepsOrderAndNesting) {
  EXPECT_EQ(
      Copied(ScriptArray({Script(1), Script(2.5), ScriptString(u"a"), Script(true), Script(Null{}),
                          Script(Undefined{}), Script(Object{}), Script(Function{})})),
      "[1,2.5000000000000000,\"a\",true,null,null,null,null]");
  EXPECT_EQ(
      Copied(ScriptArray({ScriptArray({Script(1), ScriptArray({Script(2)})}), ScriptArray({})})),
      "[[1,[2]],[]]");
}

TEST_F(ArrayToListTest, FollowsDeepNesting) {
  constexpr int kDepth = 300;
  Value array = ScriptArray({});
  std::string text = "[]";
  for (int i = 0; i < kDepth; ++i) {
    array = ScriptArray({array});
    text = "[" + text + "]";
  }
  EXPECT_EQ(Copied(array), text);
}

TEST_F(ArrayToListTest, ReplacesUnreadableElementsByNull) {
  EXPECT_EQ(Copied(ScriptArray({Value(), Script(1), Value()})), "[null,1,null]");
}

TEST_F(ArrayToListTest, KeepsListIfArrayIsEmpty) {
  EXPECT_EQ(Copied(ScriptArray({})), "[]");
  EXPECT_EQ(Copied(ScriptArray({}), {1, 2}), "[1,2]");
}

TEST_F(ArrayToListTest, CopiesNothingIfLengthIsNegative) {
  for (const int length : {-1, INT_MIN}) {
    EXPECT_EQ(Copied(Script(Array{{Script(7)}, length})), "[]");
  }
}

TEST_F(ArrayToListTest, UsesLengthOfArray) {
  EXPECT_EQ(Copied(Script(Array{{Script(7), Script(8)}, 1})), "[7]");
  EXPECT_EQ(Copied(Script(Array{{Script(7)}, 3})), "[7,null,null]");
}

// The result is the same as if the list first got the array's size and then its elements.
TEST_F(ArrayToListTest, ResizesListThatHasElements) {
  const struct {
    std::vector<Value> elements;
    std::vector<Element> before;
    const char* after;
  } kCases[] = {
      {{Script(1)}, {true, 5, 6}, "[1]"},
      {{Script(1), Script(2), Script(3)}, {true}, "[1,2,3]"},
      {{Script(Null{}), Script(2)}, {true, 5}, "[true,2]"},
      {{Script(Object{}), Script(Null{}), Script(3)}, {true}, "[true,null,3]"},
      {{Value(), Value()}, {true, 5, 6}, "[true,5]"},
      {{Script(Undefined{})}, {Element(), 4}, "[null]"},
      {{ScriptArray({Script(1)})}, {Own<cef_list_value_t>(Make<FakeList>())}, "[[1]]"},
  };
  for (const auto& [elements, before, after] : kCases) {
    EXPECT_EQ(Copied(ScriptArray(elements), before), after);
  }
}

TEST_F(ArrayToListTest, FillsEmptyListWithoutReplacingElements) {
  std::vector<Value> elements;
  for (int i = 0; i < 50; ++i)
    elements.push_back(i % 3 == 0 ? Script(Null{}) : Script(i));
  const auto list = Make<FakeList>();
  CopyV8ArrayToList(Wrapped(ScriptArray(elements)), Wrapped(list));
  EXPECT_EQ(list->elements().size(), 50u);
  EXPECT_EQ(list->replaced(), 0);
}

TEST_F(ArrayToListTest, ReplacesNestedArrayByNullIfListCannotBeCreated) {
  fake_cef::library().gives_nothing = true;
  EXPECT_EQ(Copied(ScriptArray({Script(1), ScriptArray({Script(2)})})), "[1,null]");
}

}  // namespace
