#include <gtest/gtest.h>

#include "platform/process_memory.h"
#include "platform/xml_document.h"
#include "tests/platform/xml_document_checks.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::XmlDocument;
using ParseResult = XmlDocument::ParseResult;

std::string Nested(int depth) { return Repeated("<a>", depth) + Repeated("</a>", depth); }

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
  EXPECT_TRUE(IsRefused(xml + Repeated("<b/>", 8000) + "</a>"));
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
  const auto document = Parsed(xml);
  ASSERT_TRUE(document);
  EXPECT_EQ(Answer(*document, "/a/last"), "1");
  EXPECT_EQ(Answer(*document, "/a/item"), "some text of it");
  EXPECT_EQ(Answer(*document, "/a/last/preceding-sibling::item[. != '']"), "some text of it");
}

TEST_F(HostileXmlTest, TooLargeDocumentIsRefused) {
  const std::string content = Repeated("<b/>", static_cast<int>(platform::kLargestXmlDocument / 4));
  EXPECT_TRUE(IsRefused("<a>" + content + "</a>"));
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
