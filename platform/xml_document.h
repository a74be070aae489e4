#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace platform {

// Larger documents, in bytes, are refused: the suite's are a few kilobytes. Parsers refuse a single
// text of 10 MB, so within this limit they accept texts of any length.
constexpr std::size_t kLargestXmlDocument = 8 << 20;

// The tree of an XML document, which answers queries. One thread at a time may use it.
class XmlDocument {
 public:
  enum class ParseResult {
    kParsed,   // the document is there
    kRefused,  // the text is no acceptable document; a document can be there nevertheless
    kRaised,   // the system's parser raised an exception of its own kind; no document
  };
  enum class QueryResult {
    kText,         // the text of the first item
    kWithoutText,  // the first item has no text
    kNothing,      // no items, or the query is wrong or too expensive
  };

  // Makes a document of `xml`: UTF-8 with or without a byte order mark, whatever encoding it
  // declares. White space is kept. Parsing reads no file and uses no network: external entities and
  // parameter entities count as undeclared, so a document may declare them, but is refused when it
  // refers to one. Documents whose entities add more than 1 MiB are also refused.
  //
  // `document` is null unless the system made one. `error` says what is wrong in one line, and
  // stays as it was when nothing is. Throws nothing of its own; exceptions that are neither the
  // parser's nor the platform's, such as the one for missing memory, pass through.
  static ParseResult Parse(const std::string& xml, std::unique_ptr<XmlDocument>& document,
                           std::string& error);

  XmlDocument(const XmlDocument&) = delete;
  XmlDocument& operator=(const XmlDocument&) = delete;
  ~XmlDocument();

  // Evaluates an XPath 1.0 expression, whose context is the document itself and which knows no
  // namespace prefixes. The items of a result are nodes in document order, or the one string,
  // number or truth value. The text of an element is that of all its descendants, joined. `text`,
  // UTF-8, stays as it was unless the result is kText.
  QueryResult Query(const std::string& query, std::string& text) const;

 private:
  class Tree;
  explicit XmlDocument(std::unique_ptr<Tree> tree);

  const std::unique_ptr<Tree> tree_;
};

}  // namespace platform
