#include "platform/xml_document.h"

#include <cstring>

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/shared/xml_text.h"

namespace platform {
namespace {

// Without the first option, the parser drops text that consists of white space only. The second
// option prevents loading external entities, in addition to PrepareXml().
constexpr NSUInteger kOptions = NSXMLNodePreserveWhitespace | NSXMLNodeLoadExternalEntitiesNever;

// Returns the text for the parser. Returns nil, and sets `error`, when the document must not reach
// the parser.
NSString* AcceptedText(std::string xml, std::string& error) {
  const char* problem = PrepareXml(xml);
  NSString* const text = problem ? nil : ToFoundation(xml);
  if (!text) error = problem ? problem : "the document is not in UTF-8";
  return text;
}

std::string DescriptionOf(NSError* problem) {
  std::string text;
  FromFoundation([problem localizedDescription], text);
  return text.empty() ? "the document cannot be parsed" : OneLine(text);
}

// Returns the items that a query finds. GNUstep's objectsForXQuery: raises an exception; the
// suite's queries are XPath anyway.
NSArray* Evaluate(NSXMLDocument* document, NSString* query, NSError** problem) {
  @try {
    return [document objectsForXQuery:query error:problem];
  } @catch (NSException* exception) {
    if (![[exception name] isEqualToString:NSInvalidArgumentException]) @throw;
  }
  return [document nodesForXPath:query error:problem];
}

// Returns an item's text, or nil. A boolean has XPath's text; as a number it would be "1" or "0".
NSString* TextOf(id item) {
  if ([item isKindOfClass:[NSString class]]) return item;
  if ([item isKindOfClass:[NSNumber class]] && std::strcmp([item objCType], @encode(BOOL)) == 0) {
    return [item boolValue] ? @"true" : @"false";
  }
  return [item respondsToSelector:@selector(stringValue)] ? [item stringValue] : nil;
}

}  // namespace

class XmlDocument::Tree {
 public:
  // Takes ownership of one reference.
  explicit Tree(NSXMLDocument* document) : document_(document) {}
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  ~Tree() {
    const AutoreleaseScope scope;
    [document_ release];
  }

  NSXMLDocument* document() const { return document_; }

 private:
  NSXMLDocument* const document_;
};

XmlDocument::XmlDocument(std::unique_ptr<Tree> tree) : tree_(std::move(tree)) {}

XmlDocument::~XmlDocument() = default;

XmlDocument::ParseResult XmlDocument::Parse(const std::string& xml,
                                            std::unique_ptr<XmlDocument>& document,
                                            std::string& error) {
  document.reset();
  const AutoreleaseScope scope;
  NSString* const text = AcceptedText(xml, error);
  if (!text) return ParseResult::kRefused;
  @try {
    NSError* problem = nil;
    NSXMLDocument* const parsed = [[NSXMLDocument alloc] initWithXMLString:text
                                                                   options:kOptions
                                                                     error:&problem];
    if (parsed) document.reset(new XmlDocument(std::make_unique<Tree>(parsed)));
    if (parsed && !problem) return ParseResult::kParsed;
    error = DescriptionOf(problem);
    return ParseResult::kRefused;
  } @catch (NSException* exception) {
    document.reset();
    std::string reason;
    FromFoundation([exception reason], reason);
    error = OneLine(reason);
    return ParseResult::kRaised;
  }
}

XmlDocument::QueryResult XmlDocument::Query(const std::string& query, std::string& text) const {
  const AutoreleaseScope scope;
  NSString* const expression = query.find('\0') == std::string::npos ? ToFoundation(query) : nil;
  if ([expression length] == 0) return QueryResult::kNothing;
  NSArray* items = nil;
  @try {
    NSError* problem = nil;
    items = Evaluate(tree_->document(), expression, &problem);
    if (problem) return QueryResult::kNothing;
  } @catch (NSException*) {
    return QueryResult::kNothing;
  }
  if ([items count] == 0) return QueryResult::kNothing;
  return FromFoundation(TextOf([items objectAtIndex:0]), text) ? QueryResult::kText
                                                               : QueryResult::kWithoutText;
}

}  // namespace platform
