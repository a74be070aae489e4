#include "platform/xml_document.h"

#include <gtest/gtest.h>

#include "tests/platform/xml_document_checks.h"

namespace {

using platform::XmlDocument;
using ParseResult = XmlDocument::ParseResult;

TEST(XmlDocumentTest, ReturnsTextOfElement) {
  EXPECT_EQ(Answer("<config><CEF><A>*.a.example,b</A></CEF></config>", "/config/CEF/A"),
            "*.a.example,b");
}

TEST(XmlDocumentTest, ReturnsTextOfAllDescendants) {
  EXPECT_EQ(Answer("<a>1<b>2<c x='no'>3</c><!-- no --></b><d/>4<![CDATA[<5>]]></a>", "/a"),
            "1234<5>");
}

TEST(XmlDocumentTest, KeepsWhiteSpaceAndResolvesReferences) {
  EXPECT_EQ(Answer("<a> \t\n x </a>", "/a"), " \t\n x ");
  EXPECT_EQ(Answer("<a> </a>", "/a"), " ");
  EXPECT_EQ(Answer("<a>1\r\n2</a>", "/a"), "1\n2");
  EXPECT_EQ(Answer("<a>&lt;&amp;&#65;&#xe4;</a>", "/a"), "<&Aä");
}

TEST(XmlDocumentTest, EmptyElementHasEmptyText) {
  EXPECT_EQ(Answer("<a><b/><c></c><d e=''/></a>", "/a/b"), "");
  EXPECT_EQ(Answer("<a><b/><c></c><d e=''/></a>", "/a/c"), "");
  EXPECT_EQ(Answer("<a><b/><c></c><d e=''/></a>", "/a/d/@e"), "");
}

TEST(XmlDocumentTest, OtherNodesHaveText) {
  const auto document = Parsed("<a x='1'>t<!--c--><?p d?></a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a/@x"), "1");
  EXPECT_EQ(Answer(*document, "/a/text()"), "t");
  EXPECT_EQ(Answer(*document, "/a/comment()"), "c");
  EXPECT_EQ(Answer(*document, "/a/processing-instruction()"), "d");
  EXPECT_EQ(Answer(*document, "/"), "t");
}

TEST(XmlDocumentTest, FirstItemIsFirstInDocument) {
  const auto document = Parsed("<a><b>1</b><b>2</b><c>3</c></a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a/b"), "1");
  EXPECT_EQ(Answer(*document, "/a/c | /a/b"), "1");
  EXPECT_EQ(Answer(*document, "/a/c/preceding-sibling::b"), "1");
  EXPECT_EQ(Answer(*document, "/a/b[2]"), "2");
}

TEST(XmlDocumentTest, ContextIsDocument) {
  EXPECT_EQ(Answer("<a><b>1</b></a>", "a/b"), "1");
  EXPECT_EQ(Answer("<a><b>1</b></a>", "."), "1");
}

TEST(XmlDocumentTest, QueryWithoutItemsFindsNothing) {
  EXPECT_EQ(Answer("<a><b>1</b></a>", "/a/c"), "(nothing)");
  EXPECT_EQ(Answer("<a><b>1</b></a>", "/a/B"), "(nothing)");
  EXPECT_EQ(Answer("<a><b>1</b></a>", "/b"), "(nothing)");
}

TEST(XmlDocumentTest, InvalidQueryFindsNothing) {
  const auto document = Parsed("<a><b>1</b></a>");
  ASSERT_TRUE(document);
  for (const char* const query : {"", " ", "/a/[", "//", "/a/b[", "unknown(1)", "/a/$x", "'", "%s",
                                  "1 +", ")", "/a/b\xff", "/a/x:b", "\xc3", "'\xff'"}) {
    EXPECT_EQ(Answer(*document, query), "(nothing)") << query;
  }
  EXPECT_EQ(Answer(*document, "/a/b"), "1");
}

TEST(XmlDocumentTest, NulDoesNotEndQuery) {
  EXPECT_EQ(Answer("<a>1</a>", std::string("/a\0b", 4)), "(nothing)");
}

TEST(XmlDocumentTest, FindsNamespacedElementsOnlyByLocalName) {
  const auto document = Parsed("<a xmlns='urn:x' xmlns:p='urn:y'><p:b>1</p:b></a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a"), "(nothing)");
  EXPECT_EQ(Answer(*document, "//*[local-name() = 'b']"), "1");
}

TEST(XmlDocumentTest, TextIsUtf8) {
  EXPECT_EQ(Answer("<ä>€𝄞</ä>", "/ä"), "€𝄞");
  EXPECT_EQ(Answer("\xef\xbb\xbf<a>ä</a>", "/a"), "ä");
  EXPECT_EQ(Answer("\xef\xbb\xbf<?xml version='1.0'?><a>ä</a>", "/a"), "ä");
}

TEST(XmlDocumentTest, IgnoresDeclaredEncoding) {
  for (const char* const name : {"UTF-8", "ISO-8859-1", "UTF-16", "US-ASCII", "EBCDIC", "none"}) {
    const std::string declaration =
        std::string("<?xml version='1.0' encoding='") + name + "' standalone='yes'?>";
    EXPECT_EQ(Answer(declaration + "<a>ä</a>", "/a"), "ä") << name;
  }
}

TEST(XmlDocumentTest, RefusesMalformedText) {
  for (const char* const xml : {" ",
                                "\n",
                                "text",
                                "<",
                                "<a",
                                "<a>",
                                "</a>",
                                "<a></b>",
                                "<a/><b/>",
                                "<a/>text",
                                "<a b=c/>",
                                "<a b='1' b='2'/>",
                                "<a>&unknown;</a>",
                                "<a>&</a>",
                                "<a>&#0;</a>",
                                "<a>\x01</a>",
                                "<?xml?><a/>",
                                " <?xml version='1.0'?><a/>",
                                "<a><![CDATA[</a>",
                                "<a><!-- -- --></a>",
                                "<!DOCTYPE a [<a/>",
                                "<a>]]></a>",
                                "%s%n",
                                "<a\xff/>"}) {
    EXPECT_TRUE(IsRefused(xml)) << xml;
  }
}

TEST(XmlDocumentTest, ErrorAboutLongNameIsShort) {
  EXPECT_TRUE(IsRefused("<" + Repeated("ä", 20000) + "></b>"));
}

TEST(XmlDocumentTest, ErrorIsUtf8) {
  for (const char* const beginning : {"", "1", "12", "123"}) {
    const std::string error = ErrorOf(std::string("<a><!--") + beginning + Repeated("𝄞", 100));
    EXPECT_EQ(Answer("<a><![CDATA[" + error + "]]></a>", "/a"), error);
  }
}

TEST(XmlDocumentTest, RefusesEmptyText) { EXPECT_TRUE(IsRefused("")); }

TEST(XmlDocumentTest, RefusesByteOrderMarkAlone) { EXPECT_TRUE(IsRefused("\xef\xbb\xbf")); }

TEST(XmlDocumentTest, RefusesNulAnywhere) {
  const std::string nul(1, '\0');
  EXPECT_TRUE(IsRefused(nul));
  EXPECT_TRUE(IsRefused(nul + "<a/>"));
  EXPECT_TRUE(IsRefused("<a>" + nul + "</a>"));
  EXPECT_TRUE(IsRefused("<a/>" + nul));
  EXPECT_TRUE(IsRefused("<a/>" + nul + "<b>"));
}

TEST(XmlDocumentTest, RefusesInvalidUtf8) {
  for (const char* const bytes :
       {"\xff", "\xc3", "\xe4", "\xc0\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe2\x82"}) {
    EXPECT_TRUE(IsRefused(std::string("<a>") + bytes + "</a>"));
    EXPECT_TRUE(IsRefused(std::string("<a b='") + bytes + "'/>"));
    EXPECT_TRUE(IsRefused(std::string("<!--") + bytes + "--><a/>"));
  }
  EXPECT_TRUE(IsRefused(std::string("\xff\xfe<\0a\0/\0>\0", 10)));
  EXPECT_TRUE(IsRefused(std::string("\0<\0a\0/\0>", 8)));
}

TEST(XmlDocumentTest, DoesNotGuessOtherEncodings) {
  // <?xml version="1.0"?><a/> in EBCDIC.
  EXPECT_TRUE(
      IsRefused("\x4c\x6f\xa7\x94\x93\x40\xa5\x85\x99\xa2\x89\x96\x95\x7e\x7f\xf1\x4b\xf0\x7f\x6f"
                "\x6e\x4c\x81\x61\x6e"));
  EXPECT_TRUE(IsRefused("+ADw-a/+AD4-"));
}

TEST(XmlDocumentTest, RefusalLeavesNoDocument) {
  std::unique_ptr<XmlDocument> document = Parsed("<a/>");
  std::string error;
  EXPECT_EQ(XmlDocument::Parse("", document, error), ParseResult::kRefused);
  EXPECT_EQ(document, nullptr);
}

TEST(XmlDocumentTest, DocumentsAreIndependent) {
  auto first = Parsed("<a>1</a>");
  const auto second = Parsed("<a>2</a>");
  ASSERT_TRUE(first && second);
  EXPECT_EQ(Answer(*first, "/a"), "1");
  first.reset();
  EXPECT_EQ(Answer(*second, "/a"), "2");
}

TEST(XmlDocumentTest, ExpandsInternalEntities) {
  EXPECT_EQ(Answer("<!DOCTYPE a [<!ENTITY e 'x<b>y</b>'><!ENTITY f '&e;&e;'>]><a>&f;</a>", "/a"),
            "xyxy");
  EXPECT_EQ(Answer("<!DOCTYPE a [<!ENTITY e 'x'>]><a b='&e;'/>", "/a/@b"), "x");
}

}  // namespace
