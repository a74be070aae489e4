#include "bridge/list_text.h"

#include <gtest/gtest.h>
#include <climits>
#include <limits>

#include "bridge/library_json.h"
#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::Element;
using fake_cef::FakeBinary;
using fake_cef::FakeDictionary;
using fake_cef::FakeList;
using fake_cef::library;
using fake_cef::Make;
using fake_cef::Own;

Element List(std::vector<Element> elements) {
  return Own<cef_list_value_t>(Make<FakeList>(std::move(elements)));
}

class ListTextTest : public fake_cef::FakeCefTest {
 protected:
  // Returns "ELEMENTS" or "ELEMENTS PLACEHOLDERS".
  static std::string Written(std::vector<Element> elements) {
    const ListText text = WriteListText(Wrapped(Make<FakeList>(std::move(elements))));
    return text.elements.ToString() + (text.placeholders.empty() ? "" : " ") +
           text.placeholders.ToString();
  }
  static std::string ByLibrary(std::vector<Element> elements) {
    return WriteLibraryJson(Wrapped(Make<FakeList>(std::move(elements)))).ToString();
  }
};

TEST_F(ListTextTest, CefWritesListsWithoutDoubles) {
  std::vector<Element> many(32, 7);
  many[30] = std::u16string(u"<");
  EXPECT_EQ(Written(many),
            "[7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,\"\\u003C\",7]");
  EXPECT_EQ(library().written_texts, 1);
  EXPECT_EQ(Written(std::vector<Element>(31, 7)).size(), 63U);
  EXPECT_EQ(library().written_texts, 1);
}

TEST_F(ListTextTest, WritesSmallListsWithoutCef) {
  EXPECT_EQ(Written({}), "[]");
  EXPECT_EQ(Written({1, INT_MIN, INT_MAX, true, false, Element(), std::u16string(u"a,\"]{0"),
                     List({List({}), std::u16string(u"\\\\")})}),
            R"([1,-2147483648,2147483647,true,false,null,"a,\"]{0",[[],"\\\\"]])");
  EXPECT_EQ(library().written_texts, 0);
}

TEST_F(ListTextTest, WritesListsWithManyDoublesWithoutCef) {
  std::vector<Element> rows(40, List({1, List({2, 0.5})}));
  EXPECT_EQ(Written(rows).substr(0, 20), "[[1,[2,{}]],[1,[2,{}");
  EXPECT_EQ(Written({0.5, std::u16string(u"a"), 1.5}),
            R"([{},"a",{}] [0,1071644672,0,1073217536])");
  EXPECT_EQ(Written({List({List({}), 1}), List({0.5})}), "[[[],1],[{}]] [0,1071644672]");
  EXPECT_EQ(library().written_texts, 0);
}

TEST_F(ListTextTest, WritesDoublesAsWordsUnlessTheyAreInts) {
  const double kInfinity = std::numeric_limits<double>::infinity();
  const struct {
    double number;
    const char* text;
  } kCases[] = {
      {0.0, "[{},0]"},
      {7.0, "[{},7]"},
      {-7.0, "[{},-7]"},
      {2147483647.0, "[{},2147483647]"},
      {-2147483648.0, "[{},-2147483648]"},
      {2147483648.0, "[{},{}] 0,1105199104"},
      {-2147483649.0, "[{},{}] 2097152,-1042284544"},
      {-0.0, "[{},{}] 0,-2147483648"},
      {kInfinity, "[{},{}] 0,2146435072"},
      {5e-324, "[{},{}] 1,0"},
      {0x1p63, "[{},{}] 0,1138753536"},
  };
  for (const auto& [number, text] : kCases) {
    std::string expected(text);
    const std::size_t blank = expected.find(' ');
    const std::string first = "0,1071644672";
    expected = blank == std::string::npos ? expected + " [" + first + "]"
                                          : expected.substr(0, blank) + " [" + first + "," +
                                                expected.substr(blank + 1) + "]";
    EXPECT_EQ(Written({0.5, number}), expected);
  }
}

TEST_F(ListTextTest, WritesEveryTypeAfterDoubles) {
  EXPECT_EQ(Written({0.5, 3, 0.5, 0, 0.5, true, 0.5, Element(), 0.5, std::u16string(u"s"), 0.5,
                     List({0.5, 1}), 0.0, -1}),
            "[{},3,{},0,{},true,{},null,{},\"s\",{},[{},1],0,-1] "
            "[0,1071644672,0,1071644672,0,1071644672,0,1071644672,0,1071644672,0,1071644672,"
            "0,1071644672]");
}

TEST_F(ListTextTest, EscapesStringsInListsWithDoubles) {
  const std::u16string units = {u'"', u'\\', 0, 0x1f, 0x9, u'/', 0x2028, u'<'};
  EXPECT_EQ(Written({0.5, units}),
            "[{},\"\\\"\\\\\\u0000\\u001f\\u0009/\xE2\x80\xA8<\"] [0,1071644672]");
}

TEST_F(ListTextTest, SeparatesLongStrings) {
  const std::u16string kLong(512, u'"');
  const ListText text = WriteListText(Wrapped(Make<FakeList>(
      std::vector<Element>{1, kLong, 0.5, List({kLong + u"b"}), std::u16string(511, u'c')})));
  EXPECT_EQ(text.elements.ToString(), "[1,{},{},[{}],\"" + std::string(511, 'c') + "\"]");
  EXPECT_EQ(text.placeholders.ToString(), "[0,null,0,1071644672,1,null]");
  ASSERT_EQ(text.strings.size(), 2U);
  EXPECT_EQ(text.strings[0].ToString(), fake_cef::ToUtf8(kLong));
  EXPECT_EQ(text.strings[1].ToString(), fake_cef::ToUtf8(kLong + u"b"));
}

TEST_F(ListTextTest, EscapesLongStringsBeyondLimit) {
  const std::u16string kLong(512, u'a');
  const ListText text = WriteListText(Wrapped(Make<FakeList>(std::vector<Element>(1001, kLong))));
  EXPECT_EQ(text.strings.size(), 1000U);
  EXPECT_EQ(text.elements.length(), 1000 * 3 + 512 + 4U);
}

TEST_F(ListTextTest, CefWritesLargeListsInSmallOnes) {
  EXPECT_EQ(Written({0.5, List(std::vector<Element>(32, 7))}).substr(0, 10), "[{},[7,7,7");
  EXPECT_EQ(library().written_texts, 1);
}

TEST_F(ListTextTest, SamplesReachEvenAndOddIndexesAndEveryColumn) {
  for (int period = 2; period <= 10; ++period) {
    for (int place = 0; place < period; ++place) {
      std::vector<Element> row(static_cast<std::size_t>(period), 7);
      row[static_cast<std::size_t>(place)] = 0.5;
      std::vector<Element> flat;
      for (int i = 0; i < 1000; ++i)
        flat.push_back(row[static_cast<std::size_t>(i % period)]);
      if (period <= 4) Written(flat);
      Written(std::vector<Element>(1000, List(row)));
    }
  }
  EXPECT_EQ(library().written_texts, 0);
}

TEST_F(ListTextTest, CefWritesNoSlowElements) {
  for (const Element& slow : {Element(Own<cef_dictionary_value_t>(Make<FakeDictionary>())),
                              Element(Own<cef_binary_value_t>(Make<FakeBinary>("b"))),
                              Element(std::u16string(512, u'a')), Element(0.5)}) {
    for (const std::size_t place : {0U, 99U}) {
      std::vector<Element> elements(100, 7);
      elements[place] = slow;
      Written(elements);
    }
  }
  EXPECT_EQ(library().written_texts, 0);
}

TEST_F(ListTextTest, StopsUsingCefAfterFailure) {
  std::vector<Element> inner(100, 7);
  inner[57] = -0.0;
  std::vector<Element> outer(100, List(inner));
  Written(outer);
  EXPECT_EQ(library().written_texts, 1);
}

TEST_F(ListTextTest, WritesBinaryValuesAndDictionariesAsNull) {
  EXPECT_EQ(Written({1, Own<cef_binary_value_t>(Make<FakeBinary>("b")), 2}), "[1,null,2]");
  EXPECT_EQ(Written({1, Own<cef_dictionary_value_t>(Make<FakeDictionary>()), 2}), "[1,null,2]");
  EXPECT_EQ(Written({std::u16string(u"{"), fake_cef::Invalid{}}), "[\"{\",null]");
}

// The text of CEF is not used if it changes a double that no sample reaches.
TEST_F(ListTextTest, WritesRareDoublesExactly) {
  for (const double number : {-0.0, 0.1, 0x1p63, 1e300, 1e10 + 0.5, 123456789012.0}) {
    std::vector<Element> elements(1000, 1);
    elements[997] = number;
    const std::string text = Written(std::move(elements));
    EXPECT_NE(text.find("1,{},1,1] ["), std::string::npos) << number;
  }
  EXPECT_EQ(library().written_texts, 6);
}

TEST_F(ListTextTest, CefTextIsUsedIfNumbersAreExact) {
  EXPECT_EQ(ByLibrary({0, 0.0 + 5.0, 99999999999.0, -1}), "[0,5,99999999999,-1]");
  EXPECT_EQ(ByLibrary({List({1, 0}), List({}), 0, List({List({0, 0})})}), "[[1,0],[],0,[[0,0]]]");
  EXPECT_EQ(ByLibrary({List({1, 0}), List({}), 0, List({List({0, -0.0})})}), "");
  EXPECT_EQ(ByLibrary({-0.0}), "");
  EXPECT_EQ(ByLibrary({std::numeric_limits<double>::quiet_NaN()}), "");
  EXPECT_EQ(ByLibrary({std::numeric_limits<double>::infinity()}), "");
  EXPECT_EQ(ByLibrary({1.5}), "");
  EXPECT_EQ(ByLibrary({1e22}), "");
}

TEST_F(ListTextTest, CefTextIsEmptyIfValueCannotBeCreated) {
  const auto list = Make<FakeList>(std::vector<Element>{1});
  library().gives_nothing = true;
  EXPECT_EQ(WriteLibraryJson(Wrapped(list)).ToString(), "");
}

}  // namespace
