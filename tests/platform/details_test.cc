// Tests details that every implementation supports except the one with GNUstep's Foundation.

#include <gtest/gtest.h>

#include "tests/platform/property_list_checks.h"
#include "tests/platform/xml_document_checks.h"

namespace {

TEST(XmlDetailTest, ReturnsValueAsOnlyItem) {
  const auto document = Parsed("<a><b>1</b><b>2</b></a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "count(/a/b)"), "2");
  EXPECT_EQ(Answer(*document, "1 div 4"), "0.25");
  EXPECT_EQ(Answer(*document, "string(/a/b[2])"), "2");
  EXPECT_EQ(Answer(*document, "string(/a/c)"), "");
  EXPECT_EQ(Answer(*document, "/a/b = 2"), "true");
  EXPECT_EQ(Answer(*document, "/a/c = 2"), "false");
}

TEST(XmlDetailTest, KeepsSpacesBetweenElements) {
  EXPECT_EQ(Answer("<a> <b>1</b>\n<b>2</b></a>", "/a"), " 1\n2");
}

TEST(XmlDetailTest, ErrorNamesLine) {
  const std::string error = ErrorOf("<a>\n<b>\n</c>\n</a>\n");
  EXPECT_NE(error.find('3'), std::string::npos) << error;
}

TEST(XmlDetailTest, DocumentPrefixesAreUnknown) {
  EXPECT_EQ(Answer("<a xmlns:p='urn:y'><p:b>1</p:b></a>", "//p:b"), "(nothing)");
}

TEST(XmlDetailTest, QueriesAreSilent) {
  const auto document = Parsed("<a><b>1</b></a>");
  ASSERT_TRUE(document);
  for (const std::string& query :
       {std::string(" "), std::string("/a/["), std::string("unknown(1)"), std::string("'"),
        std::string("/a/b\xff"), std::string("/a/x:b"), std::string("document('x')"),
        Repeated("(", 200000), Repeated("/a/..", 200000)}) {
    std::string messages;
    Answer(*document, query, &messages);
    EXPECT_EQ(messages, "");
  }
}

TEST(PropertyListDetailTest, CharacterDataIsText) {
  ExpectText(XmlDictionary("<string>a<![CDATA[<&amp;>]]>b</string>"), "a<&amp;>b");
}

TEST(PropertyListDetailTest, RejectsUnpairedSurrogate) {
  ExpectNone(XmlDictionary("<string>&#xD834;</string>"));
}

}  // namespace
