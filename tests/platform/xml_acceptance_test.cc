// Checks that every implementation accepts and refuses the same documents and returns the same
// text.

#include <gtest/gtest.h>
#include <functional>
#include <string>

#include "tests/platform/xml_document_checks.h"

namespace {

constexpr char kRefused[] = "(refused)";

// A row creates its texts when its test runs: some are large, and each test runs in its own
// process.
using Text = std::function<std::string()>;

struct Row {
  std::string name;
  Text xml;
  Text text;  // the text of the root element `a`, or kRefused
};

Text Plain(const std::string& text) {
  return [text] { return text; };
}

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

// Declares the entities e0 to eN, each of which refers to the previous entity `times` times.
std::string Tower(int height, int times) {
  std::string subset = "<!ENTITY e0 'lol'>";
  for (int i = 1; i <= height; ++i) {
    subset += "<!ENTITY e" + std::to_string(i) + " '" +
              Repeated("&e" + std::to_string(i - 1) + ";", times) + "'>";
  }
  return subset;
}

// Declares entities, each of which consists of a reference to the next one.
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

std::string Long() { return "<!ENTITY e '" + Repeated("x", 30000) + "'>"; }

std::string Elements() {
  return "<!ENTITY e '" + Repeated("<b/>", 250) + "'><!ENTITY f '" + Repeated("&e;", 999) + "'>";
}

class XmlAcceptance : public testing::TestWithParam<Row> {};

TEST_P(XmlAcceptance, IsSameEverywhere) { EXPECT_EQ(TextOf(GetParam().xml()), GetParam().text()); }

std::string NameOf(const testing::TestParamInfo<Row>& row) { return row.param.name; }

const Row kPlain[] = {
    {"Plain", Plain("<a>1</a>"), Plain("1")},
    {"Space", Plain("<a> </a>"), Plain(" ")},
    {"NestedAsDeepAsParsersGo", [] { return Nested(256); }, Plain("1")},
    {"NestedTooDeep", [] { return Nested(300); }, Plain(kRefused)},
    {"NestedMuchTooDeep", [] { return Nested(500000); }, Plain(kRefused)},
    {"NestedWithoutEnd", [] { return Repeated("<a>", 2000000); }, Plain(kRefused)},
    {"LongText", [] { return "<a>" + Repeated("x", 7 << 20) + "</a>"; },
     [] { return Repeated("x", 7 << 20); }},
    {"LongName", [] { return "<" + Repeated("a", 7 << 20) + "/>"; }, Plain(kRefused)},
    {"TooLarge", [] { return "<a>" + Repeated("x", 8 << 20) + "</a>"; }, Plain(kRefused)},
};

const Row kDocumentTypes[] = {
    {"Empty", Plain("<!DOCTYPE a><a>1</a>"), Plain("1")},
    {"EmptySubset", [] { return WithType("", "<a>1</a>"); }, Plain("1")},
    {"Element", [] { return WithType("<!ELEMENT a (#PCDATA)>", "<a>1</a>"); }, Plain("1")},
    {"Attribute", [] { return WithType("<!ATTLIST a b CDATA '>' c (x|y) \"x\">", "<a>1</a>"); },
     Plain("1")},
    {"Notation", [] { return WithType("<!NOTATION n SYSTEM 'n'>", "<a>1</a>"); }, Plain("1")},
    {"Instruction", [] { return WithType("<?p ]> <!ENTITY e SYSTEM 'e'> ?>", "<a>1</a>"); },
     Plain("1")},
    {"System", Plain("<!DOCTYPE a SYSTEM 'a.dtd'><a>1</a>"), Plain("1")},
    {"Public", Plain("<!DOCTYPE a PUBLIC 'p' \"a>[.dtd\" [<!ENTITY e 'x'>]><a>1&e;</a>"),
     Plain("1x")},
    {"SystemWithUnknownEntity", Plain("<!DOCTYPE a SYSTEM 'a.dtd'><a>1&e;</a>"), Plain(kRefused)},
    {"SystemWithoutLiteral", Plain("<!DOCTYPE a SYSTEM><a>1</a>"), Plain(kRefused)},
    {"SystemWithMore", Plain("<!DOCTYPE a SYSTEM 'a.dtd' b><a>1</a>"), Plain(kRefused)},
    {"PublicWithoutSystem", Plain("<!DOCTYPE a PUBLIC 'p'><a>1</a>"), Plain(kRefused)},
    {"Unfinished", Plain("<!DOCTYPE a ["), Plain(kRefused)},
    {"UnfinishedQuote", Plain("<!DOCTYPE a [<!ENTITY e 'x]><a>1</a>"), Plain(kRefused)},
    {"UnfinishedIdentifier", Plain("<!DOCTYPE a SYSTEM 'a.dtd><a>1</a>"), Plain(kRefused)},
    {"Malformed", [] { return WithType("<!ENTITY e x>", "<a>1</a>"); }, Plain(kRefused)},
    {"MalformedManyTimes", [] { return "<!DOCTYPE a [" + Repeated("<!ENTITYx>", 800000); },
     Plain(kRefused)},
    {"NamesManyTimes", [] { return "<!DOCTYPE a [" + Repeated("<!ENTITY x>", 700000); },
     Plain(kRefused)},
    {"QuotesManyTimes", [] { return "<!DOCTYPE a [" + Repeated("<!ENTITY e SYSTEM '>", 400000); },
     Plain(kRefused)},
    {"Nested", [] { return WithType("<!ELEMENT a " + Repeated("(", 500000), "<a/>"); },
     Plain(kRefused)},
    {"Larger", [] { return WithType("<!--" + Repeated("x", 100000) + "-->", "<a>1</a>"); },
     Plain("1")},
};

const Row kEntities[] = {
    {"Used", [] { return WithType("<!ENTITY e 'x<b>y</b>'><!ENTITY f '&e;&e;'>", "<a>&f;</a>"); },
     Plain("xyxy")},
    {"First", [] { return WithType("<!ENTITY e 'x'><!ENTITY e 'y'>", "<a>&e;</a>"); }, Plain("x")},
    {"Unknown", [] { return WithType("<!ENTITY e 'x'>", "<a>&f;</a>"); }, Plain(kRefused)},
    {"InComment", Plain("<!-- <!DOCTYPE a [<!ENTITY % --><a>1</a>"), Plain("1")},
    {"InCommentOfType", [] { return WithType("<!-- <!ENTITY e SYSTEM 'e' -->", "<a>1</a>"); },
     Plain("1")},
    {"InText", Plain("<a><![CDATA[<!ENTITY e SYSTEM 'e'>]]></a>"), Plain("<!ENTITY e SYSTEM 'e'>")},
    {"InValue", [] { return WithType("<!ENTITY e '&#60;!ENTITY f SYSTEM \"f\">'>", "<a>1</a>"); },
     Plain("1")},
    {"CharacterReference", [] { return WithType("<!ENTITY e '&#65;&#x42;'>", "<a>&e;</a>"); },
     Plain("AB")},
    {"EscapedLessThan", [] { return WithType("<!ENTITY e '&#38;#60;'>", "<a>&e;</a>"); },
     Plain("<")},
    {"EscapedReference",
     [] { return WithType("<!ENTITY e 'x'><!ENTITY f '&#38;e;'>", "<a>&f;</a>"); }, Plain("x")},
    {"Company", [] { return WithType("<!ENTITY e 'A&#38;amp;B'>", "<a>&e;</a>"); }, Plain("A&B")},
    {"AmpersandsUnused", [] { return WithType("<!ENTITY e 'x &#38; y &#38; z'>", "<a>1</a>"); },
     Plain("1")},
    {"SpelledReference",
     [] {
       return WithType("<!ENTITY é€𝄞x 'y'><!ENTITY f '&#38;&#233;&#x20AC;&#119070;&#x78;&#59;'>",
                       "<a>&f;</a>");
     },
     Plain("y")},
    {"ExternalUnused", [] { return WithType("<!ENTITY e SYSTEM '/dev/null'>", "<a>1</a>"); },
     Plain("1")},
    {"PublicUnused", [] { return WithType("<!ENTITY e PUBLIC 'p' '/dev/null>'>", "<a>1</a>"); },
     Plain("1")},
    {"PublicMalformed", [] { return WithType("<!ENTITY e PUBLIC 'p>' '/dev/null'>", "<a>1</a>"); },
     Plain(kRefused)},
    {"UnparsedUnused",
     [] { return WithType("<!ENTITY e SYSTEM '/dev/null' NDATA n>", "<a>1</a>"); }, Plain("1")},
    {"ExternalUsed", [] { return WithType("<!ENTITY e SYSTEM '/dev/null'>", "<a>1&e;</a>"); },
     Plain(kRefused)},
    {"ExternalInAttribute",
     [] { return WithType("<!ENTITY e SYSTEM '/dev/null'>", "<a b='&e;'/>"); }, Plain(kRefused)},
    {"ExternalMalformed", [] { return WithType("<!ENTITY e SYSTEM>", "<a>1</a>"); },
     Plain(kRefused)},
    {"ExternalWithMore", [] { return WithType("<!ENTITY e SYSTEM 'e' f>", "<a>1</a>"); },
     Plain(kRefused)},
    {"ExternalWithoutName", [] { return WithType("<!ENTITY 1 SYSTEM 'e'>", "<a>1</a>"); },
     Plain(kRefused)},
    {"ExternalBeforeInternal",
     [] { return WithType("<!ENTITY e SYSTEM 'e'><!ENTITY e 'x'>", "<a>&e;</a>"); },
     Plain(kRefused)},
    {"ExternalAfterInternal",
     [] { return WithType("<!ENTITY e 'x'><!ENTITY e SYSTEM 'e'>", "<a>&e;</a>"); }, Plain("x")},
    {"ParameterBeforeInternal",
     [] { return WithType("<!ENTITY % e 'y'><!ENTITY e 'x'>", "<a>&e;</a>"); }, Plain("x")},
    {"ParameterMalformed", [] { return WithType("<!ENTITY % p x>", "<a>1</a>"); }, Plain(kRefused)},
    {"ParameterUnused", [] { return WithType("<!ENTITY % p '<!ENTITY e \"x\">'>", "<a>1</a>"); },
     Plain("1")},
    {"ParameterUsed",
     [] { return WithType("<!ENTITY % p '<!ENTITY e \"x\">'> %p;", "<a>&e;</a>"); },
     Plain(kRefused)},
    {"ExternalParameterUsed",
     [] { return WithType("<!ENTITY % p SYSTEM '/dev/null'> %p;", "<a>1</a>"); }, Plain(kRefused)},
    {"AfterExternal",
     [] { return WithType("<!ENTITY e SYSTEM 'e'><!ENTITY f 'x'>", "<a>&f;</a>"); }, Plain("x")},
};

const Row kExpansions[] = {
    {"Small", [] { return WithType(Tower(2, 4), "<a>&e2;</a>"); },
     [] { return Repeated("lol", 16); }},
    {"Tower", [] { return WithType(Tower(29, 10), "<a>&e29;</a>"); }, Plain(kRefused)},
    {"TowerInAttribute", [] { return WithType(Tower(29, 10), "<a b='&e29;'/>"); }, Plain(kRefused)},
    {"LongText", [] { return WithType(Long(), "<a>" + Repeated("&e;", 10000) + "</a>"); },
     Plain(kRefused)},
    {"LongAttribute", [] { return WithType(Long(), "<a b='" + Repeated("&e;", 10000) + "'/>"); },
     Plain(kRefused)},
    {"LongAttributes",
     [] { return WithType(Long(), "<a>" + Repeated("<b c='&e;'/>", 500000) + "</a>"); },
     Plain(kRefused)},
    {"ManyElements", [] { return WithType(Elements(), "<a>" + Repeated("&f;", 2000) + "</a>"); },
     Plain(kRefused)},
    {"LongAttributesEscaped",
     [] {
       return WithType(Long() + "<!ENTITY f '&#38;e;'>",
                       "<a>" + Repeated("<b c='&f;'/>", 20000) + "</a>");
     },
     Plain(kRefused)},
    {"LongAttributesSpelled",
     [] {
       return WithType(Long() + "<!ENTITY f '&#x26;&#101;;'>",
                       "<a>" + Repeated("<b c='&f;'/>", 20000) + "</a>");
     },
     Plain(kRefused)},
    {"LongAttributesSpelledBeyondAscii",
     [] {
       return WithType("<!ENTITY é€𝄞 '" + Repeated("x", 30000) +
                           "'><!ENTITY f '&#38;&#233;&#x20AC;&#119070;;'>",
                       "<a>" + Repeated("<b c='&f;'/>", 20000) + "</a>");
     },
     Plain(kRefused)},
    {"Itself", [] { return WithType("<!ENTITY e '&e;'>", "<a>&e;</a>"); }, Plain(kRefused)},
    {"EachOther", [] { return WithType("<!ENTITY e '&f;&f;'><!ENTITY f '&e;&e;'>", "<a>&e;</a>"); },
     Plain(kRefused)},
    {"EachOtherInAttribute",
     [] { return WithType("<!ENTITY e '&f;&f;'><!ENTITY f '&e;&e;'>", "<a b='&e;'>1</a>"); },
     Plain(kRefused)},
    {"LongChain", [] { return WithType(Chain(200000), "<a>&e0;</a>"); }, Plain(kRefused)},
    {"Parameters", [] { return WithType(ParameterTower() + " %p29;", "<a/>"); }, Plain(kRefused)},
};

INSTANTIATE_TEST_SUITE_P(Document, XmlAcceptance, testing::ValuesIn(kPlain), NameOf);
INSTANTIATE_TEST_SUITE_P(DocumentType, XmlAcceptance, testing::ValuesIn(kDocumentTypes), NameOf);
INSTANTIATE_TEST_SUITE_P(Entity, XmlAcceptance, testing::ValuesIn(kEntities), NameOf);
INSTANTIATE_TEST_SUITE_P(Expansion, XmlAcceptance, testing::ValuesIn(kExpansions), NameOf);

}  // namespace
