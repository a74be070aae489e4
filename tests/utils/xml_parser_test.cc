#include "utils/xml_parser.h"

#include <gtest/gtest.h>

#include "tests/support/captured_log.h"
#include "tests/support/recording_logger.h"
#include "utils/log_route.h"

namespace {

using Lines = std::vector<std::string>;

constexpr char kDocument[] =
    "<?xml version='1.0' encoding='UTF-8'?>\n"
    "<config>\n"
    "  <CEF>\n"
    "    <AuthServerWhitelist>*.a.example,b.example</AuthServerWhitelist>\n"
    "    <AuthNegotiateDelegateWhitelist> </AuthNegotiateDelegateWhitelist>\n"
    "    <Empty/>\n"
    "  </CEF>\n"
    "  <name id='1'>ä</name><name id='2'>two</name><name id='3'>three</name>\n"
    "  <nested>a<b>b<c>c</c></b>d</nested>\n"
    "</config>\n";

class XMLParserTest : public testing::Test {
 protected:
  // Returns the text that a query finds, or "(none)".
  std::string Value(const std::string& query) const {
    std::string value = "(none)";
    parser_.stringValueForXQuery(query, value);
    return value;
  }

  CapturedLog log_;
  TarnUtils::XMLParser parser_;
};

TEST_F(XMLParserTest, ReturnsValuesOfLoadedDocument) {
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  EXPECT_EQ(Value("/config/CEF/AuthServerWhitelist"), "*.a.example,b.example");
  EXPECT_EQ(Value("/config/CEF/AuthNegotiateDelegateWhitelist"), " ");
  EXPECT_EQ(Value("/config/name[@id = 2]"), "two");
  EXPECT_EQ(Value("/config/name/@id"), "1");
  EXPECT_TRUE(log_.messages().empty());
}

TEST_F(XMLParserTest, EmptyElementIsEmptyValue) {
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  EXPECT_EQ(Value("/config/CEF/Empty"), "");
  EXPECT_TRUE(log_.messages().empty());
}

TEST_F(XMLParserTest, ReturnsFirstOfSeveralResults) {
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  EXPECT_EQ(Value("/config/name"), "ä");
}

TEST_F(XMLParserTest, JoinsTextOfDescendants) {
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  EXPECT_EQ(Value("/config/nested"), "abcd");
}

TEST_F(XMLParserTest, ReturnsWhetherValueExists) {
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  std::string value = "untouched";
  EXPECT_FALSE(parser_.stringValueForXQuery("/config/other", value));
  EXPECT_EQ(value, "untouched");
  EXPECT_TRUE(parser_.stringValueForXQuery("/config/CEF/Empty", value));
  EXPECT_EQ(value, "");
}

TEST_F(XMLParserTest, QueryBeforeLoadFails) {
  EXPECT_EQ(Value("/config/%s"), "(none)");
  EXPECT_EQ(log_.Lines(), (Lines{"20 XML Not initialized",
                                 "20 Error in stringValueForXQuery for query - /config/%s"}));
}

TEST_F(XMLParserTest, QueryWithoutResultsFails) {
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  EXPECT_EQ(Value("/config/CEF/Missing"), "(none)");
  EXPECT_EQ(log_.Lines(),
            Lines{"20 Node count < 0 in stringValueForXQuery for query - /config/CEF/Missing"});
}

TEST_F(XMLParserTest, InvalidQueryFails) {
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  EXPECT_EQ(Value("/config/["), "(none)");
  EXPECT_EQ(Value(""), "(none)");
  EXPECT_EQ(log_.Lines(), (Lines{"20 Node count < 0 in stringValueForXQuery for query - /config/[",
                                 "20 Node count < 0 in stringValueForXQuery for query - "}));
}

TEST_F(XMLParserTest, RefusesSecondLoadAndKeepsFirstDocument) {
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  for (const char* const second : {"<config><name>other</name></config>", "", "<"}) {
    EXPECT_FALSE(parser_.initWithXMLString(second));
    EXPECT_EQ(log_.Lines().back(),
              "40 Error Description : XML is already initialized, tring to initilize again.");
  }
  EXPECT_EQ(log_.messages().size(), 3U);
  EXPECT_EQ(Value("/config/name"), "ä");
}

TEST_F(XMLParserTest, LogsErrorOfMalformedDocument) {
  for (const char* const xml : {"<config>", "", "no document", "<a>\xff</a>"}) {
    EXPECT_FALSE(parser_.initWithXMLString(xml));
    const std::string line = log_.Lines().back();
    const std::string beginning = "20 Error in initWithXMLString, error description - ";
    EXPECT_EQ(line.substr(0, beginning.size()), beginning);
    EXPECT_GT(line.size(), beginning.size());
  }
  EXPECT_EQ(log_.messages().size(), 4U);
}

TEST_F(XMLParserTest, MalformedDocumentLeavesParserEmpty) {
  EXPECT_FALSE(parser_.initWithXMLString("<config>"));
  EXPECT_EQ(Value("/config"), "(none)");
  EXPECT_EQ(log_.Lines().at(1), "20 XML Not initialized");
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  EXPECT_EQ(Value("/config/name"), "ä");
  EXPECT_EQ(log_.messages().size(), 3U);
}

TEST_F(XMLParserTest, EveryMessageNamesModuleAndComponent) {
  Value("/config");
  ASSERT_EQ(log_.messages().size(), 2U);
  EXPECT_EQ(log_.messages()[0],
            (CapturedMessage{20, "TarnUtils", "XMLParser", "", "", "XML Not initialized"}));
  EXPECT_EQ(log_.messages()[1],
            (CapturedMessage{20, "TarnUtils", "XMLParser", "", "",
                             "Error in stringValueForXQuery for query - /config"}));
}

TEST_F(XMLParserTest, WorksWithoutLog) {
  TarnUtils::SetLogger(nullptr, nullptr);
  EXPECT_EQ(Value("/config"), "(none)");
  EXPECT_FALSE(parser_.initWithXMLString("<config>"));
  EXPECT_TRUE(parser_.initWithXMLString(kDocument));
  EXPECT_FALSE(parser_.initWithXMLString(kDocument));
  EXPECT_EQ(Value("/config/name"), "ä");
}

// Sets the parser's own logger, which only a derived class can access.
class ParserWithLogger : public TarnUtils::XMLParser {
 public:
  explicit ParserWithLogger(tarn::AbstractLogger& own) { logger = &own; }
};

TEST_F(XMLParserTest, OwnLoggerReplacesRoute) {
  RecordingLogger own;
  ParserWithLogger parser(own);
  std::string value;
  EXPECT_FALSE(parser.stringValueForXQuery("/a", value));
  EXPECT_TRUE(parser.initWithXMLString("<a/>"));
  EXPECT_FALSE(parser.stringValueForXQuery("/b", value));
  EXPECT_FALSE(parser.initWithXMLString("<a/>"));
  EXPECT_EQ(own.lines,
            (Lines{"20 [] [XMLParser] XML Not initialized",
                   "20 [] [XMLParser] Error in stringValueForXQuery for query - /a",
                   "20 [] [XMLParser] Node count < 0 in stringValueForXQuery for query - /b",
                   "40 [] [XMLParser] Error Description : XML is already initialized, tring to "
                   "initilize again."}));
  EXPECT_TRUE(log_.messages().empty());
}

}  // namespace
