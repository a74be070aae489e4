// Every implementation accepts and refuses the same documents and returns the same text.

#include <gtest/gtest.h>
#include <string>

#include "tests/platform/xml_document_checks.h"

namespace {

constexpr char kRefused[] = "(refused)";

struct Row {
  std::string name;
  std::string xml;
  std::string text;  // of the root element `a`, or kRefused
};

void PrintTo(const Row& row, std::ostream* stream) { *stream << row.name; }

std::string TextOf(const std::string& xml) {
  std::unique_ptr<platform::XmlDocument> document;
  std::string error;
  const auto result = platform::XmlDocument::Parse(xml, document, error);
  return result == platform::XmlDocument::ParseResult::kParsed ? Answer(*document, "/a") : kRefused;
}

std::string WithType(const std::string& subset, const std::string& root) {
  return "<!DOCTYPE a [" + subset + "]>" + root;
}

std::string Nested(int depth) {
  return "<a>" + Repeated("<b>", depth - 1) + "1" + Repeated("</b>", depth - 1) + "</a>";
}

// Declares the entities e0 to eN, each of which has the one before it `times` times.
std::string Tower(int height, int times) {
  std::string subset = "<!ENTITY e0 'lol'>";
  for (int i = 1; i <= height; ++i) {
    subset += "<!ENTITY e" + std::to_string(i) + " '" +
              Repeated("&e" + std::to_string(i - 1) + ";", times) + "'>";
  }
  return subset;
}

// Declares entities each of which consists of the one that follows.
std::string Chain(int length) {
  std::string subset;
  for (int i = 0; i < length; ++i)
    subset += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i + 1) + ";'>";
  return subset;
}

std::string ParameterTower() {
  std::string subset = "<!ENTITY % p0 '<!ENTITY x \"lol\">'>";
  for (int i = 1; i < 30; ++i) {
    subset += "<!ENTITY % p" + std::to_string(i) + " '" +
              Repeated("&#37;p" + std::to_string(i - 1) + ";", 10) + "'>";
  }
  return subset;
}

const std::string kLong = "<!ENTITY e '" + Repeated("x", 30000) + "'>";
const std::string kElements =
    "<!ENTITY e '" + Repeated("<b/>", 250) + "'><!ENTITY f '" + Repeated("&e;", 999) + "'>";

class XmlAcceptance : public testing::TestWithParam<Row> {};

TEST_P(XmlAcceptance, IsTheSameEverywhere) { EXPECT_EQ(TextOf(GetParam().xml), GetParam().text); }

std::string NameOf(const testing::TestParamInfo<Row>& row) { return row.param.name; }

const Row kPlain[] = {
    {"Plain", "<a>1</a>", "1"},
    {"Space", "<a> </a>", " "},
    {"NestedAsDeepAsParsersGo", Nested(256), "1"},
    {"NestedTooDeep", Nested(300), kRefused},
    {"NestedMuchTooDeep", Nested(500000), kRefused},
    {"NestedWithoutEnd", Repeated("<a>", 2000000), kRefused},
    {"LongText", "<a>" + Repeated("x", 7 << 20) + "</a>", Repeated("x", 7 << 20)},
    {"LongName", "<" + Repeated("a", 7 << 20) + "/>", kRefused},
    {"TooLarge", "<a>" + Repeated("x", 8 << 20) + "</a>", kRefused},
};

const Row kDocumentTypes[] = {
    {"Empty", "<!DOCTYPE a><a>1</a>", "1"},
    {"EmptySubset", WithType("", "<a>1</a>"), "1"},
    {"Element", WithType("<!ELEMENT a (#PCDATA)>", "<a>1</a>"), "1"},
    {"Attribute", WithType("<!ATTLIST a b CDATA '>' c (x|y) \"x\">", "<a>1</a>"), "1"},
    {"Notation", WithType("<!NOTATION n SYSTEM 'n'>", "<a>1</a>"), "1"},
    {"Instruction", WithType("<?p ]> <!ENTITY e SYSTEM 'e'> ?>", "<a>1</a>"), "1"},
    {"System", "<!DOCTYPE a SYSTEM 'a.dtd'><a>1</a>", "1"},
    {"Public", "<!DOCTYPE a PUBLIC 'p' \"a>[.dtd\" [<!ENTITY e 'x'>]><a>1&e;</a>", "1x"},
    {"SystemWithUnknownEntity", "<!DOCTYPE a SYSTEM 'a.dtd'><a>1&e;</a>", kRefused},
    {"SystemWithoutLiteral", "<!DOCTYPE a SYSTEM><a>1</a>", kRefused},
    {"SystemWithMore", "<!DOCTYPE a SYSTEM 'a.dtd' b><a>1</a>", kRefused},
    {"PublicWithoutSystem", "<!DOCTYPE a PUBLIC 'p'><a>1</a>", kRefused},
    {"Unfinished", "<!DOCTYPE a [", kRefused},
    {"UnfinishedQuote", "<!DOCTYPE a [<!ENTITY e 'x]><a>1</a>", kRefused},
    {"UnfinishedIdentifier", "<!DOCTYPE a SYSTEM 'a.dtd><a>1</a>", kRefused},
    {"Malformed", WithType("<!ENTITY e x>", "<a>1</a>"), kRefused},
    {"MalformedManyTimes", "<!DOCTYPE a [" + Repeated("<!ENTITYx>", 800000), kRefused},
    {"NamesManyTimes", "<!DOCTYPE a [" + Repeated("<!ENTITY x>", 700000), kRefused},
    {"QuotesManyTimes", "<!DOCTYPE a [" + Repeated("<!ENTITY e SYSTEM '>", 400000), kRefused},
    {"Nested", WithType("<!ELEMENT a " + Repeated("(", 500000), "<a/>"), kRefused},
    {"Larger", WithType("<!--" + Repeated("x", 100000) + "-->", "<a>1</a>"), "1"},
};

const Row kEntities[] = {
    {"Used", WithType("<!ENTITY e 'x<b>y</b>'><!ENTITY f '&e;&e;'>", "<a>&f;</a>"), "xyxy"},
    {"First", WithType("<!ENTITY e 'x'><!ENTITY e 'y'>", "<a>&e;</a>"), "x"},
    {"Unknown", WithType("<!ENTITY e 'x'>", "<a>&f;</a>"), kRefused},
    {"InComment", "<!-- <!DOCTYPE a [<!ENTITY % --><a>1</a>", "1"},
    {"InCommentOfType", WithType("<!-- <!ENTITY e SYSTEM 'e' -->", "<a>1</a>"), "1"},
    {"InText", "<a><![CDATA[<!ENTITY e SYSTEM 'e'>]]></a>", "<!ENTITY e SYSTEM 'e'>"},
    {"InValue", WithType("<!ENTITY e '&#60;!ENTITY f SYSTEM \"f\">'>", "<a>1</a>"), "1"},
    {"CharacterReference", WithType("<!ENTITY e '&#65;&#x42;'>", "<a>&e;</a>"), "AB"},
    {"EscapedLessThan", WithType("<!ENTITY e '&#38;#60;'>", "<a>&e;</a>"), "<"},
    {"EscapedReference", WithType("<!ENTITY e 'x'><!ENTITY f '&#38;e;'>", "<a>&f;</a>"), "x"},
    {"Company", WithType("<!ENTITY e 'A&#38;amp;B'>", "<a>&e;</a>"), "A&B"},
    {"AmpersandsUnused", WithType("<!ENTITY e 'x &#38; y &#38; z'>", "<a>1</a>"), "1"},
    {"SpelledReference",
     WithType("<!ENTITY é€𝄞x 'y'><!ENTITY f '&#38;&#233;&#x20AC;&#119070;&#x78;&#59;'>",
              "<a>&f;</a>"),
     "y"},
    {"ExternalUnused", WithType("<!ENTITY e SYSTEM '/dev/null'>", "<a>1</a>"), "1"},
    {"PublicUnused", WithType("<!ENTITY e PUBLIC 'p' '/dev/null>'>", "<a>1</a>"), "1"},
    {"PublicMalformed", WithType("<!ENTITY e PUBLIC 'p>' '/dev/null'>", "<a>1</a>"), kRefused},
    {"UnparsedUnused", WithType("<!ENTITY e SYSTEM '/dev/null' NDATA n>", "<a>1</a>"), "1"},
    {"ExternalUsed", WithType("<!ENTITY e SYSTEM '/dev/null'>", "<a>1&e;</a>"), kRefused},
    {"ExternalInAttribute", WithType("<!ENTITY e SYSTEM '/dev/null'>", "<a b='&e;'/>"), kRefused},
    {"ExternalMalformed", WithType("<!ENTITY e SYSTEM>", "<a>1</a>"), kRefused},
    {"ExternalWithMore", WithType("<!ENTITY e SYSTEM 'e' f>", "<a>1</a>"), kRefused},
    {"ExternalWithoutName", WithType("<!ENTITY 1 SYSTEM 'e'>", "<a>1</a>"), kRefused},
    {"ExternalBeforeInternal", WithType("<!ENTITY e SYSTEM 'e'><!ENTITY e 'x'>", "<a>&e;</a>"),
     kRefused},
    {"ExternalAfterInternal", WithType("<!ENTITY e 'x'><!ENTITY e SYSTEM 'e'>", "<a>&e;</a>"), "x"},
    {"ParameterBeforeInternal", WithType("<!ENTITY % e 'y'><!ENTITY e 'x'>", "<a>&e;</a>"), "x"},
    {"ParameterMalformed", WithType("<!ENTITY % p x>", "<a>1</a>"), kRefused},
    {"ParameterUnused", WithType("<!ENTITY % p '<!ENTITY e \"x\">'>", "<a>1</a>"), "1"},
    {"ParameterUsed", WithType("<!ENTITY % p '<!ENTITY e \"x\">'> %p;", "<a>&e;</a>"), kRefused},
    {"ExternalParameterUsed", WithType("<!ENTITY % p SYSTEM '/dev/null'> %p;", "<a>1</a>"),
     kRefused},
    {"AfterExternal", WithType("<!ENTITY e SYSTEM 'e'><!ENTITY f 'x'>", "<a>&f;</a>"), "x"},
};

const Row kExpansions[] = {
    {"Small", WithType(Tower(2, 4), "<a>&e2;</a>"), Repeated("lol", 16)},
    {"Tower", WithType(Tower(29, 10), "<a>&e29;</a>"), kRefused},
    {"TowerInAttribute", WithType(Tower(29, 10), "<a b='&e29;'/>"), kRefused},
    {"LongText", WithType(kLong, "<a>" + Repeated("&e;", 10000) + "</a>"), kRefused},
    {"LongAttribute", WithType(kLong, "<a b='" + Repeated("&e;", 10000) + "'/>"), kRefused},
    {"LongAttributes", WithType(kLong, "<a>" + Repeated("<b c='&e;'/>", 500000) + "</a>"),
     kRefused},
    {"ManyElements", WithType(kElements, "<a>" + Repeated("&f;", 2000) + "</a>"), kRefused},
    {"LongAttributesEscaped",
     WithType(kLong + "<!ENTITY f '&#38;e;'>", "<a>" + Repeated("<b c='&f;'/>", 20000) + "</a>"),
     kRefused},
    {"LongAttributesSpelled",
     WithType(kLong + "<!ENTITY f '&#x26;&#101;;'>",
              "<a>" + Repeated("<b c='&f;'/>", 20000) + "</a>"),
     kRefused},
    {"LongAttributesSpelledBeyondAscii",
     WithType(
         "<!ENTITY é€𝄞 '" + Repeated("x", 30000) + "'><!ENTITY f '&#38;&#233;&#x20AC;&#119070;;'>",
         "<a>" + Repeated("<b c='&f;'/>", 20000) + "</a>"),
     kRefused},
    {"Itself", WithType("<!ENTITY e '&e;'>", "<a>&e;</a>"), kRefused},
    {"EachOther", WithType("<!ENTITY e '&f;&f;'><!ENTITY f '&e;&e;'>", "<a>&e;</a>"), kRefused},
    {"EachOtherInAttribute",
     WithType("<!ENTITY e '&f;&f;'><!ENTITY f '&e;&e;'>", "<a b='&e;'>1</a>"), kRefused},
    {"LongChain", WithType(Chain(200000), "<a>&e0;</a>"), kRefused},
    {"Parameters", WithType(ParameterTower() + " %p29;", "<a/>"), kRefused},
};

INSTANTIATE_TEST_SUITE_P(Document, XmlAcceptance, testing::ValuesIn(kPlain), NameOf);
INSTANTIATE_TEST_SUITE_P(DocumentType, XmlAcceptance, testing::ValuesIn(kDocumentTypes), NameOf);
INSTANTIATE_TEST_SUITE_P(Entity, XmlAcceptance, testing::ValuesIn(kEntities), NameOf);
INSTANTIATE_TEST_SUITE_P(Expansion, XmlAcceptance, testing::ValuesIn(kExpansions), NameOf);

}  // namespace
