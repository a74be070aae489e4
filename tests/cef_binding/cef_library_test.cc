// Tests the binding's assumptions about libcef.so that need no browser.

#include <gtest/gtest.h>
#include <climits>
#include <utility>

#include "include/cef_app.h"
#include "include/cef_process_message.h"

namespace {

TEST(CefLibraryTest, HasExpectedApiHash) {
  EXPECT_STREQ(cef_api_hash(0), "1f9f9e15bf7cf13de2557ddd411dfc9f694503b0");
  EXPECT_STREQ(cef_api_hash(1), "b0a24e3e202f3d8b72f2fbc1ebc5864f96ec16ae");
}

TEST(CefLibraryTest, ConvertsAndComparesStrings) {
  const std::string utf8 = "\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E";
  const CefString text(utf8);
  EXPECT_EQ(text.length(), 4u);
  EXPECT_EQ(text.ToString(), utf8);
  EXPECT_LT(CefString("a").compare("ab"), 0);
  EXPECT_EQ(CefString("").compare(CefString()), 0);
  EXPECT_EQ(CefString(std::string("a\0b", 3)).ToString(), std::string("a\0b", 3));
}

TEST(CefLibraryTest, ReplacesInvalidText) {
  CefString text;
  EXPECT_FALSE(text.FromString("a\xFFz"));
  EXPECT_EQ(text.ToString(), "a\xEF\xBF\xBDz");
  const char16_t lone[] = {u'a', 0xD834};
  EXPECT_TRUE(text.FromString(lone, 2, true));
  EXPECT_EQ(text.length(), 2u);
  EXPECT_EQ(text.ToString(), "a\xEF\xBF\xBD");
}

TEST(CefLibraryTest, FreesCopiedAndMovedStringsOnce) {
  CefString text("text");
  CefString copy(text);
  CefString moved(std::move(text));
  copy.swap(moved);
  moved.clear();
  EXPECT_EQ(copy.ToString(), "text");
  EXPECT_TRUE(moved.empty());
}

TEST(CefLibraryTest, ListHoldsEachType) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  EXPECT_EQ(list->GetSize(), 0u);
  const CefRefPtr<CefListValue> inner = CefListValue::Create();
  EXPECT_TRUE(inner->SetInt(0, 9));
  EXPECT_TRUE(list->SetNull(0));
  EXPECT_TRUE(list->SetBool(1, true));
  EXPECT_TRUE(list->SetInt(2, INT_MIN));
  EXPECT_TRUE(list->SetDouble(3, 2.5));
  EXPECT_TRUE(list->SetString(4, "\xC3\xA4"));
  EXPECT_TRUE(list->SetBinary(5, CefBinaryValue::Create("b", 1)));
  EXPECT_TRUE(list->SetDictionary(6, CefDictionaryValue::Create()));
  EXPECT_TRUE(list->SetList(7, inner));

  ASSERT_EQ(list->GetSize(), 8u);
  for (int type = VTYPE_NULL; type <= VTYPE_LIST; ++type) {
    EXPECT_EQ(list->GetType(static_cast<std::size_t>(type - VTYPE_NULL)), type);
  }
  EXPECT_TRUE(list->GetBool(1));
  EXPECT_EQ(list->GetInt(2), INT_MIN);
  EXPECT_EQ(list->GetDouble(3), 2.5);
  EXPECT_EQ(list->GetString(4), "\xC3\xA4");
  EXPECT_EQ(list->GetList(7)->GetInt(0), 9);
}

TEST(CefLibraryTest, GetterOfOtherTypeReturnsEmptyValue) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  list->SetString(0, "5");
  EXPECT_EQ(list->GetInt(0), 0);
  EXPECT_FALSE(list->GetBool(0));
  EXPECT_EQ(list->GetDouble(0), 0.0);
  EXPECT_EQ(list->GetList(0), nullptr);
  EXPECT_TRUE(list->GetString(1).empty());
  EXPECT_EQ(list->GetType(1), VTYPE_INVALID);
}

TEST(CefLibraryTest, SetterAtEndAppends) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  EXPECT_TRUE(list->SetInt(0, 1));
  EXPECT_TRUE(list->SetNull(1));
  EXPECT_TRUE(list->SetString(2, ""));
  EXPECT_EQ(list->GetSize(), 3u);
  EXPECT_EQ(list->GetType(1), VTYPE_NULL);
  EXPECT_EQ(list->GetType(2), VTYPE_STRING);
}

TEST(CefLibraryTest, SetterBeyondEndFillsWithNulls) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  EXPECT_TRUE(list->SetInt(3, 1));
  ASSERT_EQ(list->GetSize(), 4u);
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_EQ(list->GetType(i), VTYPE_NULL);
  EXPECT_EQ(list->GetInt(3), 1);
}

TEST(CefLibraryTest, SetterInMiddleReplaces) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  for (int i = 0; i < 3; ++i)
    list->SetInt(static_cast<std::size_t>(i), i);
  EXPECT_TRUE(list->SetBool(1, true));
  EXPECT_EQ(list->GetSize(), 3u);
  EXPECT_EQ(list->GetInt(0), 0);
  EXPECT_EQ(list->GetType(1), VTYPE_BOOL);
  EXPECT_EQ(list->GetInt(2), 2);
}

TEST(CefLibraryTest, SetSizeExtendsWithNullsAndTruncates) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  list->SetInt(0, 7);
  EXPECT_TRUE(list->SetSize(3));
  ASSERT_EQ(list->GetSize(), 3u);
  EXPECT_EQ(list->GetInt(0), 7);
  EXPECT_EQ(list->GetType(2), VTYPE_NULL);
  EXPECT_TRUE(list->SetSize(1));
  EXPECT_EQ(list->GetSize(), 1u);
  EXPECT_EQ(list->GetInt(0), 7);
}

// With a list that has elements, this call of the library never returns.
TEST(CefLibraryTest, EmptyListAcceptsSizeZero) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  EXPECT_TRUE(list->SetSize(0));
  EXPECT_EQ(list->GetSize(), 0u);
}

TEST(CefLibraryTest, SetValueCopiesElementOfOtherList) {
  const CefRefPtr<CefListValue> from = CefListValue::Create();
  const CefRefPtr<CefListValue> to = CefListValue::Create();
  from->SetString(0, "text");
  EXPECT_TRUE(to->SetValue(0, from->GetValue(0)));
  EXPECT_EQ(to->GetString(0), "text");
  EXPECT_EQ(from->GetString(0), "text");
}

TEST(CefLibraryTest, MessageOwnsNameAndEmptyList) {
  const CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("name");
  EXPECT_EQ(message->GetName(), "name");
  EXPECT_EQ(message->GetArgumentList()->GetSize(), 0u);
  message->GetArgumentList()->SetInt(0, 7);
  EXPECT_EQ(message->GetArgumentList()->GetInt(0), 7);
}

TEST(CefLibraryTest, CommandLineStoresSwitches) {
  const CefRefPtr<CefCommandLine> line = CefCommandLine::CreateCommandLine();
  EXPECT_FALSE(line->HasSwitch("disable-pinch"));
  line->AppendSwitch("disable-pinch");
  line->AppendSwitchWithValue("lang", "de");
  EXPECT_TRUE(line->HasSwitch("disable-pinch"));
  EXPECT_TRUE(line->GetSwitchValue("disable-pinch").empty());
  EXPECT_EQ(line->GetSwitchValue("lang"), "de");
  EXPECT_FALSE(line->HasSwitch("lan"));
}

// Returns true when the library counts one reference to its object.
template <class Class>
bool LibraryHasOneReference(const CefRefPtr<Class>& object) {
  auto* const passed = cef_binding::Pass(object);
  passed->base.release(&passed->base);
  return passed->base.has_one_ref(&passed->base) != 0;
}

TEST(CefLibraryTest, WrapperHoldsOnlyReference) {
  EXPECT_TRUE(LibraryHasOneReference(CefListValue::Create()));
  EXPECT_TRUE(LibraryHasOneReference(CefDictionaryValue::Create()));
  EXPECT_TRUE(LibraryHasOneReference(CefBinaryValue::Create("b", 1)));
  EXPECT_TRUE(LibraryHasOneReference(CefProcessMessage::Create("name")));
  EXPECT_TRUE(LibraryHasOneReference(CefCommandLine::CreateCommandLine()));
}

TEST(CefLibraryTest, PassedObjectKeepsOneReference) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  const CefRefPtr<CefListValue> inner = CefListValue::Create();
  const CefRefPtr<CefBinaryValue> binary = CefBinaryValue::Create("b", 1);
  const CefRefPtr<CefDictionaryValue> dictionary = CefDictionaryValue::Create();
  list->SetList(0, inner);
  list->SetBinary(1, binary);
  list->SetDictionary(2, dictionary);
  EXPECT_TRUE(LibraryHasOneReference(inner));
  EXPECT_TRUE(LibraryHasOneReference(binary));
  EXPECT_TRUE(LibraryHasOneReference(dictionary));
  const CefRefPtr<CefListValue> other = CefListValue::Create();
  const CefRefPtr<CefValue> value = list->GetValue(0);
  EXPECT_TRUE(LibraryHasOneReference(value));
  EXPECT_TRUE(other->SetValue(0, value));
  EXPECT_TRUE(LibraryHasOneReference(value));
  EXPECT_TRUE(LibraryHasOneReference(list));
}

}  // namespace
