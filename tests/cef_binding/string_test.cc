#include "include/internal/cef_string.h"

#include <gtest/gtest.h>
#include <utility>

#include "include/capi/cef_string_capi.h"
#include "support/fake_cef/fake_cef_test.h"

namespace {

using fake_cef::LiveStrings;
using fake_cef::NewUserFree;
using fake_cef::TextOf;

class StringTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    cef_string_utf16_set(u"lent", 4, &lent_, 1);
  }
  void TearDown() override {
    cef_string_utf16_clear(&lent_);
    FakeCefTest::TearDown();
  }

  // A struct that no CefString owns.
  cef_string_t lent_{};
};

std::u16string Units(const CefString& text) { return TextOf(text.GetStruct()); }

TEST_F(StringTest, IsInitiallyEmpty) {
  const CefString text;
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text.length(), 0u);
  EXPECT_EQ(text.ToString(), "");
  ASSERT_NE(text.GetStruct(), nullptr);
  EXPECT_EQ(text.GetStruct()->str, nullptr);
}

TEST_F(StringTest, NullPointersMakeEmptyStrings) {
  EXPECT_TRUE(CefString(static_cast<const char*>(nullptr)).empty());
  EXPECT_TRUE(CefString(static_cast<cef_string_t*>(nullptr)).empty());
  EXPECT_TRUE(CefString(static_cast<const cef_string_t*>(nullptr)).empty());
  CefString text("before");
  text = static_cast<const char*>(nullptr);
  EXPECT_TRUE(text.empty());
}

TEST_F(StringTest, ConvertsFromAndToUtf8) {
  const struct {
    std::string utf8;
    std::u16string units;
  } kCases[] = {
      {"", u""},
      {"plain", u"plain"},
      {"\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E", u"\u00E4\u20AC\U0001D11E"},
      {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
      {std::string(1, '\0'), std::u16string(1, u'\0')},
  };
  for (const auto& [utf8, units] : kCases) {
    const CefString text(utf8);
    EXPECT_EQ(Units(text), units);
    EXPECT_EQ(text.length(), units.size());
    EXPECT_EQ(text.size(), units.size());
    EXPECT_EQ(text.ToString(), utf8);
  }
}

TEST_F(StringTest, ConvertsImplicitlyToUtf8) {
  const CefString text(std::string("\xC3\xA4\0b", 4));
  const std::string initialized = text;
  EXPECT_EQ(initialized, std::string("\xC3\xA4\0b", 4));
  std::string assigned = "before";
  assigned = CefString();
  EXPECT_EQ(assigned, "");
  const auto length = [](const std::string& utf8) { return utf8.size(); };
  EXPECT_EQ(length(text), 4u);
}

TEST_F(StringTest, ReplacesAndReportsInvalidUtf8) {
  CefString text;
  EXPECT_FALSE(text.FromString("a\xFFz"));
  EXPECT_EQ(Units(text), u"a\uFFFDz");
  EXPECT_TRUE(text.FromString("good"));
  EXPECT_EQ(Units(text), u"good");
}

TEST_F(StringTest, KeepsLoneSurrogatesAndReplacesThemInUtf8) {
  const char16_t units[] = {0xD834, u'a', 0xDD1E};
  CefString text;
  text.FromString(units, 3, true);
  const CefString copy(text);
  EXPECT_EQ(Units(copy), std::u16string(units, 3));
  EXPECT_EQ(copy.ToString(),
            "\xEF\xBF\xBD"
            "a\xEF\xBF\xBD");
}

TEST_F(StringTest, CopyOwnsText) {
  CefString original("text");
  CefString copy(original);
  EXPECT_NE(copy.c_str(), original.c_str());
  original = "changed";
  EXPECT_EQ(copy.ToString(), "text");
  copy = original;
  EXPECT_NE(copy.c_str(), original.c_str());
  EXPECT_EQ(copy.ToString(), "changed");
}

TEST_F(StringTest, CopyOfBorrowedStringOwnsText) {
  const CefString borrowed(&lent_);
  CefString copy(borrowed);
  copy = "mine";
  EXPECT_EQ(borrowed.ToString(), "lent");
  copy = borrowed;
  EXPECT_NE(copy.c_str(), lent_.str);
  EXPECT_EQ(copy.ToString(), "lent");
}

TEST_F(StringTest, SelfAssignmentKeepsText) {
  CefString owned("text");
  const CefString& same = owned;
  owned = same;
  EXPECT_EQ(owned.ToString(), "text");
  CefString borrowed(&lent_);
  const CefString& same_borrowed = borrowed;
  borrowed = same_borrowed;
  EXPECT_EQ(borrowed.ToString(), "lent");
}

TEST_F(StringTest, WriteToBorrowedStringChangesOwner) {
  {
    CefString borrowed(&lent_);
    borrowed = "written";
    EXPECT_EQ(TextOf(&lent_), u"written");
    borrowed = std::string("again");
    EXPECT_EQ(TextOf(&lent_), u"again");
    borrowed = CefString("copied");
    EXPECT_EQ(TextOf(&lent_), u"copied");
    borrowed.AttachToUserFree(NewUserFree(u"attached"));
    EXPECT_EQ(TextOf(&lent_), u"attached");
  }
  EXPECT_EQ(TextOf(&lent_), u"attached");
  CefString(&lent_).clear();
  EXPECT_EQ(lent_.str, nullptr);
  EXPECT_EQ(lent_.length, 0u);
}

TEST_F(StringTest, BorrowedStringFreesNothing) {
  const long before = LiveStrings();
  { const CefString borrowed(static_cast<const cef_string_t*>(&lent_)); }
  EXPECT_EQ(LiveStrings(), before);
  EXPECT_EQ(TextOf(&lent_), u"lent");
}

TEST_F(StringTest, RefersToTextWithoutCopy) {
  const char16_t units[] = u"outside";
  const long before = LiveStrings();
  CefString text("own");
  text.FromString(units, 7, false);
  EXPECT_EQ(text.c_str(), units);
  EXPECT_EQ(LiveStrings(), before);
  text = "own again";
  EXPECT_EQ(std::u16string(units), u"outside");
}

TEST_F(StringTest, MoveTakesTextAndLeavesEmptyString) {
  CefString from("text");
  const char16* const units = from.c_str();
  const CefString to(std::move(from));
  EXPECT_EQ(to.c_str(), units);
  EXPECT_TRUE(from.empty());
  from = "usable";
  EXPECT_EQ(from.ToString(), "usable");
  EXPECT_EQ(to.ToString(), "text");
}

TEST_F(StringTest, MoveOfBorrowedStringKeepsOwner) {
  CefString from(&lent_);
  CefString to(std::move(from));
  EXPECT_EQ(to.GetStruct(), &lent_);
  EXPECT_TRUE(from.empty());
  from = "own";
  to = "written";
  EXPECT_EQ(TextOf(&lent_), u"written");
  EXPECT_EQ(from.ToString(), "own");
}

TEST_F(StringTest, SwapExchangesOwnedStrings) {
  CefString first("first");
  CefString second("second");
  first.swap(second);
  EXPECT_EQ(first.ToString(), "second");
  EXPECT_EQ(second.ToString(), "first");
  first.swap(first);
  EXPECT_EQ(first.ToString(), "second");
}

TEST_F(StringTest, SwapExchangesOwnedAndBorrowedString) {
  CefString owned("owned");
  CefString borrowed(&lent_);
  owned.swap(borrowed);
  EXPECT_EQ(owned.GetStruct(), &lent_);
  EXPECT_EQ(borrowed.ToString(), "owned");
  EXPECT_NE(borrowed.GetStruct(), &lent_);
  borrowed.swap(owned);
  EXPECT_EQ(borrowed.GetStruct(), &lent_);
  EXPECT_EQ(owned.ToString(), "owned");
  EXPECT_EQ(TextOf(&lent_), u"lent");
}

TEST_F(StringTest, SwapExchangesBorrowedStrings) {
  cef_string_t other{};
  cef_string_utf16_set(u"other", 5, &other, 1);
  {
    CefString first(&lent_);
    CefString second(&other);
    first.swap(second);
    EXPECT_EQ(first.GetStruct(), &other);
    EXPECT_EQ(second.GetStruct(), &lent_);
    first.swap(first);
    EXPECT_EQ(first.GetStruct(), &other);
  }
  cef_string_utf16_clear(&other);
}

TEST_F(StringTest, AttachTakesOverTextAndFreesStruct) {
  const long before = LiveStrings();
  {
    CefString text("before");
    cef_string_utf16_t* const given = NewUserFree(u"given");
    const char16* const units = given->str;
    text.AttachToUserFree(given);
    EXPECT_EQ(text.c_str(), units);
    text.AttachToUserFree(nullptr);
    EXPECT_TRUE(text.empty());
  }
  EXPECT_EQ(LiveStrings(), before);
}

TEST_F(StringTest, ComparesCodeUnits) {
  EXPECT_TRUE(CefString("a") == CefString("a"));
  EXPECT_TRUE(CefString("a") == "a");
  EXPECT_TRUE(CefString("a") != "A");
  EXPECT_TRUE(CefString("a") < CefString("ab"));
  EXPECT_FALSE(CefString("b") < CefString("ab"));
  EXPECT_TRUE(CefString("") == CefString());
  EXPECT_TRUE(CefString(std::string("a\0b", 3)) != CefString(std::string("a\0c", 3)));
  EXPECT_LT(CefString("a").compare("b"), 0);
  EXPECT_GT(CefString("b").compare("a"), 0);
  EXPECT_EQ(CefString(&lent_).compare("lent"), 0);
}

}  // namespace
