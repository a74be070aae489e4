#include "platform/xml_document.h"

#include <gtest/gtest.h>
#include <filesystem>

#include "platform/process_memory.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::XmlDocument;
using ParseResult = XmlDocument::ParseResult;
using QueryResult = XmlDocument::QueryResult;

std::string Repeated(const std::string& text, int times) {
  std::string repeated;
  repeated.reserve(text.size() * static_cast<std::size_t>(times));
  for (int i = 0; i < times; ++i)
    repeated += text;
  return repeated;
}

std::string Nested(int depth) { return Repeated("<a>", depth) + Repeated("</a>", depth); }

// Null, with a failure, when the text is refused.
std::unique_ptr<XmlDocument> Parsed(const std::string& xml) {
  std::unique_ptr<XmlDocument> document;
  std::string error = "untouched";
  EXPECT_EQ(XmlDocument::Parse(xml, document, error), ParseResult::kParsed) << error;
  EXPECT_EQ(error, "untouched");
  return document;
}

// The error that a refused text brings, "(none)" when it is accepted. Standard error stays silent.
std::string ErrorOf(const std::string& xml) {
  std::unique_ptr<XmlDocument> document;
  std::string error = "(none)";
  testing::internal::CaptureStderr();
  const ParseResult result = XmlDocument::Parse(xml, document, error);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  if (result == ParseResult::kParsed) return "(none)";
  EXPECT_NE(error, "(none)");
  EXPECT_EQ(error.find('\n'), std::string::npos) << error;
  EXPECT_LT(error.size(), 400U);
  return error;
}

bool IsRefused(const std::string& xml) { return ErrorOf(xml) != "(none)"; }

// The text that a query brings, "(nothing)" or "(without text)".
std::string Answer(const XmlDocument& document, const std::string& query) {
  std::string text = "untouched";
  testing::internal::CaptureStderr();
  const QueryResult result = document.Query(query, text);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  if (result == QueryResult::kText) return text;
  EXPECT_EQ(text, "untouched");
  return result == QueryResult::kNothing ? "(nothing)" : "(without text)";
}

std::string Answer(const std::string& xml, const std::string& query) {
  const std::unique_ptr<XmlDocument> document = Parsed(xml);
  return document ? Answer(*document, query) : "(no document)";
}

TEST(XmlDocumentTest, TextOfAnElement) {
  EXPECT_EQ(Answer("<config><CEF><A>*.a.example,b</A></CEF></config>", "/config/CEF/A"),
            "*.a.example,b");
}

TEST(XmlDocumentTest, TextOfAnElementIsThatOfAllDescendants) {
  EXPECT_EQ(Answer("<a>1<b>2<c x='no'>3</c><!-- no --></b><d/>4<![CDATA[<5>]]></a>", "/a"),
            "1234<5>");
}

TEST(XmlDocumentTest, TextIsTakenAsItIs) {
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

TEST(XmlDocumentTest, OtherNodesHaveTexts) {
  const auto document = Parsed("<a x='1'>t<!--c--><?p d?></a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a/@x"), "1");
  EXPECT_EQ(Answer(*document, "/a/text()"), "t");
  EXPECT_EQ(Answer(*document, "/a/comment()"), "c");
  EXPECT_EQ(Answer(*document, "/a/processing-instruction()"), "d");
  EXPECT_EQ(Answer(*document, "/"), "t");
}

TEST(XmlDocumentTest, FirstItemIsTheFirstOneOfTheDocument) {
  const auto document = Parsed("<a><b>1</b><b>2</b><c>3</c></a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a/b"), "1");
  EXPECT_EQ(Answer(*document, "/a/c | /a/b"), "1");
  EXPECT_EQ(Answer(*document, "/a/c/preceding-sibling::b"), "1");
  EXPECT_EQ(Answer(*document, "/a/b[2]"), "2");
}

TEST(XmlDocumentTest, ContextIsTheDocument) {
  EXPECT_EQ(Answer("<a><b>1</b></a>", "a/b"), "1");
  EXPECT_EQ(Answer("<a><b>1</b></a>", "."), "1");
}

TEST(XmlDocumentTest, QueryWithoutItemsFindsNothing) {
  EXPECT_EQ(Answer("<a><b>1</b></a>", "/a/c"), "(nothing)");
  EXPECT_EQ(Answer("<a><b>1</b></a>", "/a/B"), "(nothing)");
  EXPECT_EQ(Answer("<a><b>1</b></a>", "/b"), "(nothing)");
}

TEST(XmlDocumentTest, WrongQueryFindsNothing) {
  const auto document = Parsed("<a><b>1</b></a>");
  ASSERT_TRUE(document);
  for (const char* const query : {"", " ", "/a/[", "//", "/a/b[", "unknown(1)", "/a/$x", "'", "%s",
                                  "1 +", ")", "/a/b\xff", "/a/x:b", "\xc3"}) {
    EXPECT_EQ(Answer(*document, query), "(nothing)") << query;
  }
  EXPECT_EQ(Answer(*document, "/a/b"), "1");
}

TEST(XmlDocumentTest, NulInAQueryIsNoEnd) {
  EXPECT_EQ(Answer("<a>1</a>", std::string("/a\0b", 4)), "(nothing)");
}

TEST(XmlDocumentTest, ValueIsTheOnlyItem) {
  const auto document = Parsed("<a><b>1</b><b>2</b></a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "count(/a/b)"), "2");
  EXPECT_EQ(Answer(*document, "1 div 4"), "0.25");
  EXPECT_EQ(Answer(*document, "string(/a/b[2])"), "2");
  EXPECT_EQ(Answer(*document, "string(/a/c)"), "");
  EXPECT_EQ(Answer(*document, "/a/b = 2"), "true");
  EXPECT_EQ(Answer(*document, "/a/c = 2"), "false");
}

TEST(XmlDocumentTest, ElementsOfANamespaceAreFoundByTheirLocalNameOnly) {
  const auto document = Parsed("<a xmlns='urn:x' xmlns:p='urn:y'><p:b>1</p:b></a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a"), "(nothing)");
  EXPECT_EQ(Answer(*document, "//p:b"), "(nothing)");
  EXPECT_EQ(Answer(*document, "//*[local-name() = 'b']"), "1");
}

TEST(XmlDocumentTest, TextIsUtf8) {
  EXPECT_EQ(Answer("<ä>€𝄞</ä>", "/ä"), "€𝄞");
  EXPECT_EQ(Answer("\xef\xbb\xbf<a>ä</a>", "/a"), "ä");
  EXPECT_EQ(Answer("\xef\xbb\xbf<?xml version='1.0'?><a>ä</a>", "/a"), "ä");
}

TEST(XmlDocumentTest, DeclaredEncodingIsIgnored) {
  for (const char* const name : {"UTF-8", "ISO-8859-1", "UTF-16", "US-ASCII", "EBCDIC", "none"}) {
    const std::string declaration =
        std::string("<?xml version='1.0' encoding='") + name + "' standalone='yes'?>";
    EXPECT_EQ(Answer(declaration + "<a>ä</a>", "/a"), "ä") << name;
  }
}

TEST(XmlDocumentTest, MalformedTextIsRefused) {
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

TEST(XmlDocumentTest, ErrorNamesTheLine) {
  const std::string error = ErrorOf("<a>\n<b>\n</c>\n</a>\n");
  EXPECT_NE(error.find('3'), std::string::npos) << error;
}

TEST(XmlDocumentTest, ErrorAboutALongNameStaysShort) {
  EXPECT_TRUE(IsRefused("<" + Repeated("ä", 20000) + "></b>"));
}

TEST(XmlDocumentTest, EmptyTextIsRefused) { EXPECT_TRUE(IsRefused("")); }

TEST(XmlDocumentTest, ByteOrderMarkAloneIsRefused) { EXPECT_TRUE(IsRefused("\xef\xbb\xbf")); }

TEST(XmlDocumentTest, NulIsRefusedWhereverItStands) {
  const std::string nul(1, '\0');
  EXPECT_TRUE(IsRefused(nul));
  EXPECT_TRUE(IsRefused(nul + "<a/>"));
  EXPECT_TRUE(IsRefused("<a>" + nul + "</a>"));
  EXPECT_TRUE(IsRefused("<a/>" + nul));
  EXPECT_TRUE(IsRefused("<a/>" + nul + "<b>"));
}

TEST(XmlDocumentTest, TextThatIsNotUtf8IsRefused) {
  for (const char* const bytes :
       {"\xff", "\xc3", "\xe4", "\xc0\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe2\x82"}) {
    EXPECT_TRUE(IsRefused(std::string("<a>") + bytes + "</a>"));
    EXPECT_TRUE(IsRefused(std::string("<a b='") + bytes + "'/>"));
    EXPECT_TRUE(IsRefused(std::string("<!--") + bytes + "--><a/>"));
  }
  EXPECT_TRUE(IsRefused(std::string("\xff\xfe<\0a\0/\0>\0", 10)));
  EXPECT_TRUE(IsRefused(std::string("\0<\0a\0/\0>", 8)));
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

TEST(XmlDocumentTest, EntityOfTheDocumentStandsForItsText) {
  EXPECT_EQ(Answer("<!DOCTYPE a [<!ENTITY e 'x<b>y</b>'><!ENTITY f '&e;&e;'>]><a>&f;</a>", "/a"),
            "xyxy");
  EXPECT_EQ(Answer("<!DOCTYPE a [<!ENTITY e 'x'>]><a b='&e;'/>", "/a/@b"), "x");
}

// Files that a document must not bring in.
class OutsideOfTheDocumentTest : public testing::Test {
 protected:
  OutsideOfTheDocumentTest() {
    WriteFile(File("text"), "secret");
    WriteFile(File("dtd"), "<!ENTITY e 'secret'><!ATTLIST a b CDATA 'secret'>");
  }

  std::string File(const std::string& name) const { return folder_.path() + "/" + name; }

  // Everything that a query can find, empty for a refused document.
  static std::string AllText(const std::string& xml) {
    std::unique_ptr<XmlDocument> document;
    std::string error;
    if (XmlDocument::Parse(xml, document, error) != ParseResult::kParsed) return "";
    return Answer(*document, "/") + Answer(*document, "//@*");
  }

  TemporaryFolder folder_;
};

TEST_F(OutsideOfTheDocumentTest, IsNoEntity) {
  for (const std::string& place : {File("text"), "file://" + File("text")}) {
    const std::string declared = "<!DOCTYPE a [<!ENTITY e SYSTEM '" + place + "'>]>";
    for (const char* const use : {"<a>&e;</a>", "<a b='&e;'/>"}) {
      EXPECT_EQ(AllText(declared + use).find("secret"), std::string::npos) << place << use;
    }
  }
}

TEST_F(OutsideOfTheDocumentTest, IsNoParameterEntity) {
  const std::string declared =
      "<!DOCTYPE a [<!ENTITY % d SYSTEM '" + File("dtd") + "'> %d;]><a>&e;</a>";
  EXPECT_EQ(AllText(declared).find("secret"), std::string::npos);
}

TEST_F(OutsideOfTheDocumentTest, IsNoDocumentType) {
  for (const std::string& identifier :
       {"SYSTEM '" + File("dtd") + "'", "PUBLIC 'p' '" + File("dtd") + "'"}) {
    for (const char* const use : {"<a/>", "<a>&e;</a>"}) {
      EXPECT_EQ(AllText("<!DOCTYPE a " + identifier + ">" + use).find("secret"), std::string::npos);
    }
  }
}

TEST_F(OutsideOfTheDocumentTest, IsNotIncluded) {
  EXPECT_EQ(AllText("<a xmlns:i='http://www.w3.org/2001/XInclude'><i:include parse='text' href='" +
                    File("text") + "'/></a>")
                .find("secret"),
            std::string::npos);
}

TEST_F(OutsideOfTheDocumentTest, IsOutOfReachOfQueries) {
  EXPECT_EQ(Answer("<a/>", "document('" + File("text") + "')"), "(nothing)");
  EXPECT_EQ(Answer("<a/>", "unparsed-text('" + File("text") + "')"), "(nothing)");
}

// Documents and queries that want to cost more than they are worth. None may make the process grow
// by much; ctest ends a test that takes too long.
class HostileXmlTest : public testing::Test {
 protected:
  static unsigned long long Dirtied() {
    unsigned long long bytes = 0;
    EXPECT_TRUE(platform::GetDirtiedMemory(bytes));
    return bytes;
  }

  // Accepted or not, the document and what is found in it stay small.
  void ExpectSmall(const std::string& xml) const {
    std::unique_ptr<XmlDocument> document;
    std::string error;
    if (XmlDocument::Parse(xml, document, error) == ParseResult::kParsed) Answer(*document, "/");
    EXPECT_LT(Dirtied(), before_ + (256ULL << 20));
  }

  const unsigned long long before_ = Dirtied();
};

TEST_F(HostileXmlTest, EntitiesOfEntities) {
  std::string xml = "<!DOCTYPE a [<!ENTITY e0 'lol'>";
  for (int i = 1; i < 30; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    xml += "<!ENTITY e" + std::to_string(i) + " '" + Repeated(inner, 10) + "'>";
  }
  ExpectSmall(xml + "]><a>&e29;</a>");
  ExpectSmall(xml + "]><a b='&e29;'/>");
  EXPECT_TRUE(IsRefused(xml + "]><a>&e29;</a>"));
}

TEST_F(HostileXmlTest, EntitiesOfManyElements) {
  const std::string xml = "<!DOCTYPE a [<!ENTITY e '" + Repeated("<b/>", 250) + "'><!ENTITY f '" +
                          Repeated("&e;", 999) + "'>]><a>";
  EXPECT_TRUE(IsRefused(xml + Repeated("&f;", 2000) + "</a>"));
  ExpectSmall(xml + Repeated("&f;", 2000) + "</a>");
}

TEST_F(HostileXmlTest, LongEntityUsedOften) {
  const std::string xml = "<!DOCTYPE a [<!ENTITY e '" + Repeated("x", 30000) + "'>]>";
  ExpectSmall(xml + "<a>" + Repeated("&e;", 10000) + "</a>");
  ExpectSmall(xml + "<a b='" + Repeated("&e;", 10000) + "'/>");
  ExpectSmall(xml + "<a>" + Repeated("<b c='&e;'/>", 2000000) + "</a>");
}

TEST_F(HostileXmlTest, EntityThatContainsItself) {
  EXPECT_TRUE(IsRefused("<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>"));
  EXPECT_TRUE(IsRefused("<!DOCTYPE a [<!ENTITY e '&f;&f;'><!ENTITY f '&e;&e;'>]><a>&e;</a>"));
  EXPECT_TRUE(IsRefused("<!DOCTYPE a [<!ENTITY e '&f;&f;'><!ENTITY f '&e;&e;'>]><a b='&e;'/>"));
}

TEST_F(HostileXmlTest, LongChainOfEntities) {
  std::string xml = "<!DOCTYPE a [";
  for (int i = 0; i < 2500; ++i) {
    xml += "<!ENTITY e" + std::to_string(i) + "'&e" + std::to_string(i + 1) + ";'>";
  }
  ExpectSmall(xml + "]><a>&e0;</a>");
}

TEST_F(HostileXmlTest, ParameterEntities) {
  std::string xml = "<!DOCTYPE a [<!ENTITY % e0 '<!ENTITY x \"lol\">'>";
  for (int i = 1; i < 30; ++i) {
    const std::string inner = "&#37;e" + std::to_string(i - 1) + ";";
    xml += "<!ENTITY % e" + std::to_string(i) + " '" + Repeated(inner, 10) + "'>";
  }
  ExpectSmall(xml + " %e29;]><a/>");
}

TEST_F(HostileXmlTest, LongDefaultAttribute) {
  const std::string xml = "<!DOCTYPE a [<!ATTLIST b c CDATA '" + Repeated("x", 30000) + "'>]><a>";
  ExpectSmall(xml + Repeated("<b/>", 8000) + "</a>");
  ExpectSmall(xml + Repeated("<b/>", 5000000) + "</a>");
}

TEST_F(HostileXmlTest, ManyDefaultAttributes) {
  std::string xml = "<!DOCTYPE a [<!ATTLIST b";
  for (int i = 0; i < 2000; ++i)
    xml += " c" + std::to_string(i) + " CDATA ''";
  ExpectSmall(xml + ">]><a>" + Repeated("<b/>", 6000) + "</a>");
}

TEST_F(HostileXmlTest, LongListInADeclaration) {
  std::string names = "n";
  for (int i = 0; i < 2000000; ++i)
    names += "|n" + std::to_string(i);
  ExpectSmall("<!DOCTYPE a [<!ATTLIST a b NOTATION (" + names + ") #IMPLIED>]><a/>");
}

TEST_F(HostileXmlTest, DeepNesting) {
  EXPECT_FALSE(IsRefused(Nested(200)));
  EXPECT_TRUE(IsRefused(Nested(100000)));
  ExpectSmall(Repeated("<a>", 6000000));
}

TEST_F(HostileXmlTest, DeepNestingInADeclaration) {
  ExpectSmall("<!DOCTYPE a [<!ELEMENT a " + Repeated("(", 50000));
  ExpectSmall("<!DOCTYPE a [<!ELEMENT a " + Repeated("(", 5000000));
}

TEST_F(HostileXmlTest, ManyAttributes) {
  std::string attributes;
  for (int i = 0; i < 1500000; ++i)
    attributes += " a" + std::to_string(i) + "=''";
  ExpectSmall("<a" + attributes + "/>");
  ExpectSmall("<!-- <b --><a" + attributes + "/>");
  ExpectSmall("<x>it's<a" + attributes + "/></x>");
}

TEST_F(HostileXmlTest, ManyNamespacesInScope) {
  std::string xml;
  for (int depth = 0; depth < 200; ++depth) {
    xml += "<a";
    for (int i = 0; i < 900; ++i)
      xml += " xmlns:p" + std::to_string(i) + "='u'";
    xml += ">";
  }
  ExpectSmall(xml + Repeated("<b/>", 4000000));
}

TEST_F(HostileXmlTest, LongNamesAndTexts) {
  ExpectSmall("<" + Repeated("a", 20 << 20) + "/>");
  ExpectSmall("<a>" + Repeated("x", 20 << 20) + "</a>");
  ExpectSmall("<a b='" + Repeated("x", 20 << 20) + "'/>");
  ExpectSmall("<!--" + Repeated("x", 20 << 20) + "--><a/>");
  ExpectSmall("<a>" + Repeated("&#65;", 4 << 20) + "</a>");
}

TEST_F(HostileXmlTest, TextOfTwentyMebibytesIsAnswered) {
  const std::string line = "<item name='n'>some text of it</item>\n";
  const std::string xml =
      "<a>" + Repeated(line, static_cast<int>((20U << 20) / line.size())) + "<last>1</last></a>";
  EXPECT_EQ(Answer(xml, "/a/last"), "1");
  EXPECT_EQ(Answer(xml, "/a/item"), "some text of it");
}

TEST_F(HostileXmlTest, TooLargeDocumentIsRefused) {
  const std::string beginning = "<a>";
  const std::string end = "</a>";
  const std::string spaces(platform::kLargestXmlDocument, '\n');
  EXPECT_TRUE(IsRefused(beginning + spaces + end));
}

TEST_F(HostileXmlTest, DeepQueries) {
  const auto document = Parsed("<a><b>1</b></a>");
  ASSERT_TRUE(document);
  for (const char* const part : {"(", "[", "-", "a[", "not(", "/a/..", "//*", "|", "string("}) {
    Answer(*document, Repeated(part, 200000));
    Answer(*document, "/a" + Repeated(part, 2000) + "1");
  }
  EXPECT_EQ(Answer(*document, "/a/b"), "1");
}

TEST_F(HostileXmlTest, QueriesThatVisitEverythingAgainAndAgain) {
  const auto document = Parsed("<a>" + Repeated("<b><c>1</c></b>", 3000) + "</a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "count(//*)"), "6001");
  EXPECT_EQ(Answer(*document, "//*[count(//*[count(//*[count(//*) > 9]) > 9]) > 9]"), "(nothing)");
  EXPECT_EQ(Answer(*document, Repeated("//c/../following::*", 20)), "(nothing)");
  EXPECT_LT(Dirtied(), before_ + (256ULL << 20));
}

}  // namespace
