// What a system's own XML library cannot be kept from: where Foundation does the work, these take
// their time.

#include <gtest/gtest.h>

#include "tests/platform/hostile_xml.h"

namespace {

class ExpensiveXmlTest : public HostileXmlTest {};

TEST_F(ExpensiveXmlTest, ManyNamespacesInScope) {
  std::string xml;
  for (int depth = 0; depth < 200; ++depth) {
    xml += "<a";
    for (int i = 0; i < 900; ++i)
      xml += " xmlns:p" + std::to_string(i) + "='u'";
    xml += ">";
  }
  ExpectSmall(xml + Repeated("<b/>", 4000000));
}

TEST_F(ExpensiveXmlTest, TextOfTwentyMebibytesIsAnswered) {
  const std::string line = "<item name='n'>some text of it</item>\n";
  const std::string xml =
      "<a>" + Repeated(line, static_cast<int>((20U << 20) / line.size())) + "<last>1</last></a>";
  const auto document = Parsed(xml);
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a/last"), "1");
  EXPECT_EQ(Answer(*document, "/a/item"), "some text of it");
  EXPECT_EQ(Answer(*document, "/a/last/preceding-sibling::item[. != '']"), "some text of it");
}

TEST_F(ExpensiveXmlTest, DeepQueries) {
  const auto document = Parsed("<a><b>1</b></a>");
  ASSERT_TRUE(document);
  for (const char* const part : {"(", "[", "-", "a[", "not(", "/a/..", "//*", "|", "string("}) {
    Answer(*document, Repeated(part, 200000));
    Answer(*document, "/a" + Repeated(part, 2000) + "1");
  }
  EXPECT_EQ(Answer(*document, "/a/b"), "1");
}

TEST_F(ExpensiveXmlTest, QueriesThatVisitEverythingAgainAndAgain) {
  const auto document = Parsed("<a>" + Repeated("<b><c>1</c></b>", 3000) + "</a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "count(//*)"), "6001");
  EXPECT_EQ(Answer(*document, "//*[count(//*[count(//*[count(//*) > 9]) > 9]) > 9]"), "(nothing)");
  EXPECT_EQ(Answer(*document, Repeated("//c/../following::*", 20)), "(nothing)");
  EXPECT_LT(Dirtied(), before_ + (256ULL << 20));
}

}  // namespace
