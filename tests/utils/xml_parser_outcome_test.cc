// Tests outcomes of the platform's XML document that not every platform has. The definition in this
// file replaces the platform's.
#include <gtest/gtest.h>
#include <stdexcept>

#include "platform/autorelease_scope.h"
#include "platform/xml_document.h"
#include "tests/support/captured_log.h"
#include "utils/xml_parser.h"

namespace {

using Lines = std::vector<std::string>;
using platform::XmlDocument;

// The outcome of the next call of each operation.
struct Script {
  XmlDocument::ParseResult parse = XmlDocument::ParseResult::kParsed;
  bool document = true;
  bool throws = false;
  XmlDocument::QueryResult query = XmlDocument::QueryResult::kText;
};

Script g_script;
int g_documents = 0;
int g_scopes = 0;
int g_destroyed_in_scope = 0;

}  // namespace

namespace platform {

class XmlDocument::Tree {
 public:
  Tree() { ++g_documents; }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  ~Tree() {
    --g_documents;
    if (g_scopes == 1) ++g_destroyed_in_scope;
  }
};

XmlDocument::XmlDocument(std::unique_ptr<Tree> tree) : tree_(std::move(tree)) {}

XmlDocument::~XmlDocument() = default;

XmlDocument::ParseResult XmlDocument::Parse(const std::string& /*xml*/,
                                            std::unique_ptr<XmlDocument>& document,
                                            std::string& error) {
  EXPECT_EQ(g_scopes, 1);
  if (g_script.throws) throw std::runtime_error("of somebody else");
  if (g_script.document) document.reset(new XmlDocument(std::make_unique<Tree>()));
  error = "the %s reason";
  return g_script.parse;
}

XmlDocument::QueryResult XmlDocument::Query(const std::string& /*query*/, std::string& text) const {
  EXPECT_EQ(g_scopes, 1);
  if (g_script.query == QueryResult::kText) text = "found";
  return g_script.query;
}

void* PushAutoreleasePool() {
  ++g_scopes;
  return nullptr;
}

void PopAutoreleasePool(void* /*pool*/) { --g_scopes; }

}  // namespace platform

namespace {

class XMLParserOutcomeTest : public testing::Test {
 protected:
  XMLParserOutcomeTest() {
    g_script = Script();
    g_destroyed_in_scope = 0;
  }
  ~XMLParserOutcomeTest() override {
    EXPECT_EQ(g_scopes, 0);
    EXPECT_EQ(g_documents, 0);
  }

  CapturedLog log_;
};

TEST_F(XMLParserOutcomeTest, KeepsButDoesNotUseDocumentWithError) {
  {
    TarnUtils::XMLParser parser;
    g_script.parse = XmlDocument::ParseResult::kRefused;
    EXPECT_FALSE(parser.initWithXMLString("<a/>"));
    EXPECT_FALSE(parser.initWithXMLString("<a/>"));
    EXPECT_EQ(g_documents, 2);
    std::string value = "untouched";
    EXPECT_FALSE(parser.stringValueForXQuery("/a", value));
    EXPECT_EQ(value, "untouched");
  }
  EXPECT_EQ(log_.Lines(),
            (Lines{"20 Error in initWithXMLString, error description - the %s reason",
                   "20 Error in initWithXMLString, error description - the %s reason",
                   "20 XML Not initialized", "20 Error in stringValueForXQuery for query - /a"}));
  EXPECT_EQ(g_destroyed_in_scope, 2);
}

TEST_F(XMLParserOutcomeTest, UsesGoodDocumentAfterDocumentWithError) {
  TarnUtils::XMLParser parser;
  g_script.parse = XmlDocument::ParseResult::kRefused;
  EXPECT_FALSE(parser.initWithXMLString("<a/>"));
  g_script.parse = XmlDocument::ParseResult::kParsed;
  EXPECT_TRUE(parser.initWithXMLString("<a/>"));
  EXPECT_EQ(g_documents, 2);
  std::string value;
  EXPECT_TRUE(parser.stringValueForXQuery("/a", value));
  EXPECT_EQ(value, "found");
}

TEST_F(XMLParserOutcomeTest, ParsedResultWithoutDocumentIsError) {
  TarnUtils::XMLParser parser;
  g_script.document = false;
  EXPECT_FALSE(parser.initWithXMLString("<a/>"));
  EXPECT_EQ(log_.Lines(),
            Lines{"20 Error in initWithXMLString, error description - the %s reason"});
}

TEST_F(XMLParserOutcomeTest, LogsReasonOfPlatformException) {
  TarnUtils::XMLParser parser;
  g_script.parse = XmlDocument::ParseResult::kRaised;
  g_script.document = false;
  EXPECT_FALSE(parser.initWithXMLString("<a/>"));
  EXPECT_EQ(log_.Lines(),
            Lines{"20 Exception in initWithXMLString, error description - the %s reason"});
}

TEST_F(XMLParserOutcomeTest, StaysUsableAfterOtherException) {
  TarnUtils::XMLParser parser;
  g_script.throws = true;
  EXPECT_THROW(parser.initWithXMLString("<a/>"), std::runtime_error);
  EXPECT_EQ(g_scopes, 0);
  EXPECT_TRUE(log_.messages().empty());
  g_script.throws = false;
  EXPECT_TRUE(parser.initWithXMLString("<a/>"));
}

TEST_F(XMLParserOutcomeTest, ItemWithoutTextHasOwnMessage) {
  TarnUtils::XMLParser parser;
  EXPECT_TRUE(parser.initWithXMLString("<a/>"));
  g_script.query = XmlDocument::QueryResult::kWithoutText;
  std::string value = "untouched";
  EXPECT_FALSE(parser.stringValueForXQuery("/a", value));
  EXPECT_EQ(value, "untouched");
  EXPECT_EQ(log_.Lines(),
            Lines{"20 Error is accessing property value in stringValueForXQuery for query - /a"});
}

}  // namespace
