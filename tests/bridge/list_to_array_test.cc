#include <gtest/gtest.h>
#include <climits>

#include "bridge/value_conversion.h"
#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::Element;
using fake_cef::FakeBinary;
using fake_cef::FakeDictionary;
using fake_cef::FakeList;
using fake_cef::Invalid;
using fake_cef::library;
using fake_cef::Make;
using fake_cef::Own;

class ListToArrayTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    library().entered_contexts = 1;
  }

  static Element List(std::vector<Element> elements) {
    return Own<cef_list_value_t>(Make<FakeList>(std::move(elements)));
  }

  // Returns an array of the list's size after the copy.
  static std::string Copied(std::vector<Element> elements) {
    const auto array = ScriptArray(std::vector<Value>(elements.size()));
    CopyListToV8Array(Wrapped(Make<FakeList>(std::move(elements))), Wrapped(array));
    return array->Text();
  }
};

TEST_F(ListToArrayTest, KeepsSupportedTypesAndReplacesOthersByNull) {
  const struct {
    Element element;
    const char* array;
  } kCases[] = {
      {true, "[true]"},
      {false, "[false]"},
      {0, "[0]"},
      {INT_MAX, "[2147483647]"},
      {INT_MIN, "[-2147483648]"},
      {1.0, "[1.0000000000000000]"},
      {-2.5, "[-2.5000000000000000]"},
      {std::u16string(), "[\"\"]"},
      {std::u16string(u"\u00E4\u20AC\U0001D11E"), "[\"\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E\"]"},
      {List({}), "[[]]"},
      {Element(), "[null]"},
      {Invalid{}, "[null]"},
      {Own<cef_binary_value_t>(Make<FakeBinary>("b")), "[null]"},
      {Own<cef_dictionary_value_t>(Make<FakeDictionary>()), "[null]"},
  };
  for (const auto& [element, array] : kCases)
    EXPECT_EQ(Copied({element}), array);
}

TEST_F(ListToArrayTest, KeepsStringsUnchanged) {
  const std::u16string units = {u'a', u'\0', 0xD834, u'b', 0xDD1E};
  const auto array = ScriptArray({Value()});
  CopyListToV8Array(Wrapped(Make<FakeList>(std::vector<Element>{units})), Wrapped(array));
  const auto element =
      Value::Take(fake_cef::FakeV8Value::From(array->get_value_byindex(array.get(), 0)));
  EXPECT_EQ(element->text(), units);
}

TEST_F(ListToArrayTest, KeepsOrderAndNesting) {
  EXPECT_EQ(Copied({7, Element(), Own<cef_dictionary_value_t>(Make<FakeDictionary>()), List({})}),
            "[7,null,null,[]]");
  EXPECT_EQ(Copied({List({1, List({2})}), List({})}), "[[1,[2]],[]]");
}

TEST_F(ListToArrayTest, FollowsDeepNesting) {
  Element list = List({});
  std::string text = "[[]]";
  for (int i = 0; i < 300; ++i) {
    list = List({list});
    text = "[" + text + "]";
  }
  EXPECT_EQ(Copied({list}), text);
}

TEST_F(ListToArrayTest, KeepsArrayIfListIsEmpty) {
  const auto array = ScriptArray({Script(1)});
  CopyListToV8Array(Wrapped(Make<FakeList>()), Wrapped(array));
  EXPECT_EQ(array->Text(), "[1]");
}

TEST_F(ListToArrayTest, AssignsEveryIndex) {
  const auto array = ScriptArray({Script(1), Script(2), Script(3)});
  CopyListToV8Array(Wrapped(Make<FakeList>(std::vector<Element>{Element(), Invalid{}, 5})),
                    Wrapped(array));
  EXPECT_EQ(array->Text(), "[null,null,5]");
}

TEST_F(ListToArrayTest, ReplacesMissingListByNull) {
  EXPECT_EQ(Copied({Own<cef_list_value_t>(), 1}), "[null,1]");
}

TEST_F(ListToArrayTest, ReplacesListByNullIfArrayCannotBeCreated) {
  library().entered_contexts = 0;
  EXPECT_EQ(Copied({List({1}), 2}), "[null,2]");
}

TEST_F(ListToArrayTest, CreatesNestedArraysInSizeOfLists) {
  std::vector<int> lengths;
  library().allows_array = [&](int length) {
    lengths.push_back(length);
    return true;
  };
  Copied({List({1, 2, List({})}), List({5})});
  EXPECT_EQ(lengths, (std::vector<int>{3, 0, 1}));
}

// CEF creates no objects. The elements stay empty, and no null object is used.
TEST_F(ListToArrayTest, AssignsNothingIfValuesCannotBeCreated) {
  library().gives_nothing = true;
  EXPECT_EQ(Copied({1, true, 2.5, std::u16string(u"s")}), "[hole,hole,hole,hole]");
}

}  // namespace
