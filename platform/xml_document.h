#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace platform {

// The size, in bytes, above which a document is refused. The suite's documents have a few
// kilobytes. Parsers refuse a single text of 10 MB, so within this limit they accept texts of any
// length.
constexpr std::size_t kMaxXmlDocumentSize = 8 << 20;

// Holds the tree of an XML document and answers queries. Not thread-safe.
class XmlDocument {
 public:
  enum class ParseResult {
    kParsed,   // the document was parsed without errors
    kRefused,  // the text is not an acceptable document; a document can exist nevertheless
    kRaised,   // the system's parser raised its own kind of exception; no document
  };
  enum class QueryResult {
    kText,         // the text of the first item
    kWithoutText,  // the first item has no text
    kNothing,      // no items, or the query is invalid or too expensive
  };

  // Parses `xml`: UTF-8 with or without a byte order mark, whatever encoding it declares. Keeps
  // white space. Parsing reads no file and uses no network: external entities and parameter
  // entities count as undeclared, so a document may declare them, but is refused when it refers to
  // one. Also refuses documents whose entities add more than 1 MiB.
  //
  // `document` is null unless the system created a document. `error` is one line that describes the
  // problem, and stays unchanged after success. Throws no exceptions of its own; exceptions that
  // come neither from the parser nor from the platform, such as std::bad_alloc, pass through.
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
