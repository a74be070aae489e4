#include "bridge/packed_array.h"

#include <gtest/gtest.h>
#include <cmath>
#include <limits>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::FakeList;
using fake_cef::Make;
using fake_cef::Own;

using Units = std::u16string;

class PackedArrayTest : public fake_cef::FakeCefTest {
 protected:
  static Own<FakeList> Read(const Units& text) {
    const auto list = Make<FakeList>();
    // Omits the terminating zero, so that a sanitizer detects reads beyond the end.
    const std::vector<char16_t> exact(text.begin(), text.end());
    ReadPackedArray(exact.data(), exact.size(), Wrapped(list));
    return list;
  }

  // Returns a packed array of `length` elements with the contents `strings`.
  static Units Packed(char16_t length, const Units& elements, const Units& strings = {}) {
    return Units{static_cast<char16_t>(elements.size() + 2), 0, length, 0} + elements + strings;
  }

  static std::string Elements(char16_t length, const Units& elements, const Units& strings = {}) {
    return Read(Packed(length, elements, strings))->Text();
  }
};

TEST_F(PackedArrayTest, ReadsEachKind) {
  const struct {
    Units element;
    const char* list;
  } kCases[] = {
      {{0}, "[null]"},
      {{1}, "[false]"},
      {{2}, "[true]"},
      {{3, 0, 0}, "[0]"},
      {{3, 0x1234, 0}, "[4660]"},
      {{3, 0xffff, 0xffff}, "[-1]"},
      {{3, 0xffff, 0x7fff}, "[2147483647]"},
      {{3, 0, 0x8000}, "[-2147483648]"},
      {{4, 0, 0, 0, 0x3ff8}, "[1.5000000000000000]"},
      {{4, 0, 0, 0, 0x8000}, "[-0.0000000000000000]"},
      {{4, 1, 0, 0, 0}, "[4.9406564584124654e-324]"},
      {{4, 0, 0, 0, 0xfff0}, "[-inf]"},
      {{5, 0, 0}, "[\"\"]"},
      {{6, 0, 0}, "[[]]"},
  };
  for (const auto& [element, list] : kCases)
    EXPECT_EQ(Elements(1, element), list);
}

TEST_F(PackedArrayTest, ReadsNotANumber) {
  const auto list = Read(Packed(1, {4, 0, 0, 0, 0x7ff8}));
  EXPECT_TRUE(std::isnan(std::get<double>(list->elements()[0])));
}

TEST_F(PackedArrayTest, ReadsStringsOneAfterAnother) {
  EXPECT_EQ(Elements(3, {5, 2, 0, 5, 0, 0, 5, 1, 0}, u"abc"), R"(["ab","","c"])");
}

TEST_F(PackedArrayTest, KeepsEveryUnitOfStrings) {
  const Units units = {u'a', 0, 0xd834, u'b', 0xdd1e, 0xffff, 0xfeff};
  const auto list = Read(Packed(1, {5, 7, 0}, units));
  EXPECT_EQ(std::get<Units>(list->elements()[0]), units);
}

TEST_F(PackedArrayTest, ReadsLongStrings) {
  const Units units(0x10001, u'x');
  const auto list = Read(Packed(1, {5, 1, 1}, units));
  EXPECT_EQ(std::get<Units>(list->elements()[0]), units);
}

TEST_F(PackedArrayTest, ReadsNestedArrays) {
  EXPECT_EQ(Elements(3, {6, 2, 0, 3, 1, 0, 6, 1, 0, 5, 1, 0, 6, 0, 0, 5, 1, 0}, u"ab"),
            R"([[1,["a"]],[],"b"])");
}

TEST_F(PackedArrayTest, ReadsMoreElementsThanFitOneUnit) {
  const Units nulls(0x10001, 0);
  EXPECT_EQ(Read(Units{3, 1, 1, 1} + nulls)->elements().size(), 0x10001U);
}

TEST_F(PackedArrayTest, ReadsUntilTextEnds) {
  const Units whole = Packed(3, {6, 1, 0, 5, 2, 0, 4, 0, 0, 0, 0x3ff0, 3, 1, 0}, u"ab");
  EXPECT_EQ(Read(whole)->Text(), R"([["ab"],1.0000000000000000,1])");
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_LE(Read(whole.substr(0, size))->elements().size(), 3U);
  EXPECT_EQ(Read({})->Text(), "[]");
}

TEST_F(PackedArrayTest, StopsAtEndDespiteLargerLengths) {
  const char16_t all = 0xffff;
  EXPECT_EQ(Read({all, all, all, all, 2})->Text(), "[true]");
  EXPECT_EQ(Read({all, all, all, all, 6, all, all, 2})->Text(), "[[true]]");
  EXPECT_EQ(Elements(1, {5, all, all}, u"ab"), R"(["ab"])");
}

TEST_F(PackedArrayTest, ReadsUnknownKindsAsNull) {
  EXPECT_EQ(Elements(2, {7, 0xffff}), "[null,null]");
}

TEST_F(PackedArrayTest, LimitsNesting) {
  Units levels;
  for (int i = 0; i < 100000; ++i)
    levels += Units{6, 1, 0};
  EXPECT_EQ(Read(Units{0xffff, 0xffff, 1, 0} + levels)->elements().size(), 1U);
}

TEST_F(PackedArrayTest, ReadsNullIfListCannotBeCreated) {
  const auto list = Make<FakeList>();
  const Units text = Packed(2, {6, 1, 0, 2, 1});
  fake_cef::library().gives_nothing = true;
  ReadPackedArray(text.data(), text.size(), Wrapped(list));
  EXPECT_EQ(fake_cef::TypeOf(list->elements().front()), VTYPE_NULL);
}

}  // namespace
