// Tests how the document handles every outcome of the system's document, including outcomes that
// GNUstep's document does not have by itself.

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include "platform/autorelease_scope.h"
#include "tests/gnustep/replaced_method.h"
#include "tests/platform/xml_document_checks.h"

namespace {

using platform::XmlDocument;

const SEL kInit = @selector(initWithXMLString:options:error:);
const SEL kQuery = @selector(objectsForXQuery:error:);

id RaisingInit(id, SEL, NSString*, NSUInteger, NSError**) {
  [NSException raise:@"SomeException" format:@"the reason"];
  return nil;
}

NSUInteger g_options = 0;

id InitWithOptions(id self, SEL, NSString*, NSUInteger options, NSError**) {
  g_options = options;
  return self;
}

id InitWithError(id self, SEL, NSString*, NSUInteger, NSError** problem) {
  *problem = [NSError errorWithDomain:@"SomeDomain"
                                 code:1
                             userInfo:@{NSLocalizedDescriptionKey : @"a warning\nof two lines"}];
  return self;
}

id g_items = nil;

id Items(id, SEL, NSString*, NSError**) { return g_items; }

id ItemsWithError(id, SEL, NSString*, NSError** problem) {
  *problem = [NSError errorWithDomain:@"SomeDomain" code:1 userInfo:nil];
  return g_items;
}

// GNUstep ignores both options.
TEST(XmlOutcomeTest, RequestsWhiteSpaceAndNoExternalEntities) {
  const ReplacedMethod init([NSXMLDocument class], kInit, reinterpret_cast<IMP>(InitWithOptions));
  Parsed("<a> </a>");
  EXPECT_EQ(g_options, NSXMLNodePreserveWhitespace | NSXMLNodeLoadExternalEntitiesNever);
}

TEST(XmlOutcomeTest, ReportsExceptionOfParser) {
  const ReplacedMethod init([NSXMLDocument class], kInit, reinterpret_cast<IMP>(RaisingInit));
  std::unique_ptr<XmlDocument> document;
  std::string error;
  EXPECT_EQ(XmlDocument::Parse("<a/>", document, error), XmlDocument::ParseResult::kRaised);
  EXPECT_EQ(document, nullptr);
  EXPECT_EQ(error, "the reason");
}

TEST(XmlOutcomeTest, RefusesButKeepsDocumentWithError) {
  const ReplacedMethod init([NSXMLDocument class], kInit, reinterpret_cast<IMP>(InitWithError));
  std::unique_ptr<XmlDocument> document;
  std::string error;
  EXPECT_EQ(XmlDocument::Parse("<a/>", document, error), XmlDocument::ParseResult::kRefused);
  EXPECT_NE(document, nullptr);
  EXPECT_EQ(error, "a warning of two lines");
}

TEST(XmlOutcomeTest, ReturnsTextOfFirstItem) {
  const auto document = Parsed("<a/>");
  ASSERT_TRUE(document);
  const ReplacedMethod query([NSXMLDocument class], kQuery, reinterpret_cast<IMP>(Items));
  const platform::AutoreleaseScope scope;
  g_items = @[ @"text", @"no" ];
  EXPECT_EQ(Answer(*document, "q"), "text");
  g_items = @[ @2 ];
  EXPECT_EQ(Answer(*document, "q"), "2");
  g_items = @[ [NSNumber numberWithBool:YES] ];
  EXPECT_EQ(Answer(*document, "q"), "true");
  g_items = @[ [NSNull null] ];
  EXPECT_EQ(Answer(*document, "q"), "(without text)");
  g_items = @[];
  EXPECT_EQ(Answer(*document, "q"), "(nothing)");
  g_items = nil;
  EXPECT_EQ(Answer(*document, "q"), "(nothing)");
}

TEST(XmlOutcomeTest, ReturnsNothingForItemsWithError) {
  const auto document = Parsed("<a/>");
  ASSERT_TRUE(document);
  const ReplacedMethod query([NSXMLDocument class], kQuery, reinterpret_cast<IMP>(ItemsWithError));
  const platform::AutoreleaseScope scope;
  g_items = @[ @"text" ];
  EXPECT_EQ(Answer(*document, "q"), "(nothing)");
}

}  // namespace
