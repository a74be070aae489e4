#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace platform {

// The size, in bytes, above which a document is refused. The suite's documents have a few
// kilobytes. The limit is below the 10 MB at which parsers refuse a single text.
constexpr std::size_t kMaxXmlDocumentSize = 8 << 20;

// Holds the tree of an XML document and answers queries. Not thread-safe.
class XmlDocument {
 public:
  enum class ParseResult {
    kParsed,   // the document was parsed without errors
    kRefused,  // the text is not an acceptable document
    kRaised,   // the parser raised an Objective-C exception, which happens only on macOS
  };
  enum class QueryResult {
    kText,         // the text of the first item, which may be empty, as for an empty element
    kWithoutText,  // the system cannot produce the text of the first item
    kNothing,      // no items, or the query is invalid; on Linux, also if it is too expensive
  };

  // Parses `xml`: UTF-8 with or without a byte order mark, whatever encoding it declares. Keeps
  // white space. Parsing reads no file and uses no network: external entities and parameter
  // entities count as undeclared, so a document may declare them, but is refused when it refers to
  // one. Also refuses documents whose entities add more than 1 MiB.
  //
  // `document` is null after a failure. `error` is one line that describes the problem, and stays
  // unchanged after success. Turns the parser's exceptions into kRaised; other exceptions, such as
  // std::bad_alloc, pass through. On macOS, `document` may exist even after kRefused, if the parser
  // created one.
  static ParseResult Parse(const std::string& xml, std::unique_ptr<XmlDocument>& document,
                           std::string& error);

  XmlDocument(const XmlDocument&) = delete;
  XmlDocument& operator=(const XmlDocument&) = delete;
  ~XmlDocument();

  // Evaluates an XPath 1.0 expression. Its context is the document itself, and no namespace
  // prefixes are defined. The items of a result are nodes in document order, or a single string,
  // number or boolean. The text of an element is the concatenated text of all its descendants.
  // `text` is UTF-8 and stays unchanged unless the result is kText.
  QueryResult Query(const std::string& query, std::string& text) const;

 private:
  class Tree;
  explicit XmlDocument(std::unique_ptr<Tree> tree);

  const std::unique_ptr<Tree> tree_;
};

}  // namespace platform
