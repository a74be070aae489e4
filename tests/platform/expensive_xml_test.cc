// Tests large documents and expensive queries, which take long in Foundation.

#include <gtest/gtest.h>

#include "platform/process_memory.h"
#include "tests/platform/xml_document_checks.h"

namespace {

unsigned long long Dirtied() {
  unsigned long long bytes = 0;
  EXPECT_TRUE(platform::GetDirtiedMemory(bytes));
  return bytes;
}

TEST(ExpensiveXmlTest, QueriesLargeDocument) {
  const std::string line = "<item name='n'>some text of it</item>\n";
  const std::string xml =
      "<a>" + Repeated(line, static_cast<int>((7U << 20) / line.size())) + "<last>1</last></a>";
  const auto document = Parsed(xml);
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a/last"), "1");
  EXPECT_EQ(Answer(*document, "/a/item"), "some text of it");
  EXPECT_EQ(Answer(*document, "/a/last/preceding-sibling::item[. != '']"), "some text of it");
}

TEST(ExpensiveXmlTest, SurvivesDeepQueries) {
  const auto document = Parsed("<a><b>1</b></a>");
  ASSERT_TRUE(document);
  for (const char* const part : {"(", "[", "-", "a[", "not(", "/a/..", "//*", "|", "string("}) {
    Answer(*document, Repeated(part, 200000));
    Answer(*document, "/a" + Repeated(part, 2000) + "1");
  }
  EXPECT_EQ(Answer(*document, "/a/b"), "1");
}

TEST(ExpensiveXmlTest, LimitsExpensiveQueries) {
  const unsigned long long before = Dirtied();
  const auto document = Parsed("<a>" + Repeated("<b><c>1</c></b>", 3000) + "</a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "count(//*)"), "6001");
  EXPECT_EQ(Answer(*document, "//*[count(//*[count(//*[count(//*) > 9]) > 9]) > 9]"), "(nothing)");
  EXPECT_EQ(Answer(*document, Repeated("//c/../following::*", 20)), "(nothing)");
  EXPECT_LT(Dirtied(), before + (256ULL << 20));
}

}  // namespace
