#include "platform/xml_document.h"

#include <libxml/parser.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <utility>

#include "platform/shared/xml_text.h"

namespace platform {
namespace {

// The steps that a query may take: enough for a few searches through a whole document. A step can
// cost as much as the number of the document's elements, because sets of nodes are compared node by
// node.
constexpr unsigned long kBaseSteps = 200'000;
constexpr unsigned long kStepsPerElement = 16;

struct FreeXml {
  void operator()(xmlParserCtxtPtr parser) const { xmlFreeParserCtxt(parser); }
  void operator()(xmlDocPtr document) const { xmlFreeDoc(document); }
  void operator()(xmlXPathContextPtr context) const { xmlXPathFreeContext(context); }
  void operator()(xmlXPathObjectPtr object) const { xmlXPathFreeObject(object); }
  void operator()(xmlChar* text) const { xmlFree(text); }
};
template <typename T>
using XmlPtr = std::unique_ptr<T, FreeXml>;

const xmlChar* ToXml(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

// Returns a message in valid UTF-8, on one line. The parser truncates quotations from the document
// even within a character.
std::string Tidied(std::string text) {
  if (!xmlCheckUTF8(ToXml(text))) {
    for (char& character : text) {
      if (static_cast<unsigned char>(character) >= 0x80) character = '?';
    }
  }
  return OneLine(text);
}

// Drops the few messages that the library reports only as lines; their query fails anyway.
void DropLine(void* /*context*/, const char* /*format*/, ...) {}

// Captures the library's messages of this thread, instead of standard error, for its lifetime.
class ErrorCapture {
 public:
  ErrorCapture()
      : handler_(xmlStructuredError),
        context_(xmlStructuredErrorContext),
        line_handler_(xmlGenericError),
        line_context_(xmlGenericErrorContext) {
    xmlSetGenericErrorFunc(nullptr, DropLine);
    xmlSetStructuredErrorFunc(this, [](void* capture, auto* error) {
      static_cast<ErrorCapture*>(capture)->Keep(*error);
    });
  }
  ErrorCapture(const ErrorCapture&) = delete;
  ErrorCapture& operator=(const ErrorCapture&) = delete;
  ~ErrorCapture() {
    xmlSetGenericErrorFunc(line_context_, line_handler_);
    xmlSetStructuredErrorFunc(context_, handler_);
  }

  // Returns the first fatal error. Later errors usually follow from it.
  const std::string& text() const { return text_; }

 private:
  void Keep(const xmlError& error) {
    if (error.level != XML_ERR_FATAL || !text_.empty() || !error.message) return;
    if (error.line > 0) text_ = "line " + std::to_string(error.line) + ": ";
    text_ = Tidied(text_ + error.message);
  }

  xmlStructuredErrorFunc handler_;
  void* context_;
  xmlGenericErrorFunc line_handler_;
  void* line_context_;
  std::string text_;
};

// Returns null, and sets `error`, when the text is refused.
XmlPtr<xmlDoc> ParseTree(const std::string& xml, std::string& error) {
  const ErrorCapture capture;
  const XmlPtr<xmlParserCtxt> parser(xmlNewParserCtxt());
  if (!parser) {
    error = "out of memory";
    return nullptr;
  }
  XmlPtr<xmlDoc> tree(xmlCtxtReadMemory(
      parser.get(), xml.data(), static_cast<int>(xml.size()), nullptr, "UTF-8",
      XML_PARSE_IGNORE_ENC | XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_COMPACT));
  if (!tree) error = capture.text().empty() ? "the document cannot be parsed" : capture.text();
  return tree;
}

// Returns null only when memory is exhausted: every item has text. Evaluation leaves nodes in
// document order.
XmlPtr<xmlChar> TextOfFirstItem(xmlXPathObjectPtr result) {
  if (result->type != XPATH_NODESET) return XmlPtr<xmlChar>(xmlXPathCastToString(result));
  return XmlPtr<xmlChar>(xmlXPathCastNodeToString(result->nodesetval->nodeTab[0]));
}

bool HasItems(const xmlXPathObject* result) {
  return result && (result->type != XPATH_NODESET || !xmlXPathNodeSetIsEmpty(result->nodesetval));
}

}  // namespace

class XmlDocument::Tree {
 public:
  explicit Tree(XmlPtr<xmlDoc> document) : document_(std::move(document)) {
    // Without these numbers, libxml2 finds the order of two elements by walking from one to the
    // other.
    const long elements = xmlXPathOrderDocElems(document_.get());
    if (elements > 0) max_steps_ += kStepsPerElement * static_cast<unsigned long>(elements);
  }

  xmlDocPtr document() const { return document_.get(); }
  unsigned long max_steps() const { return max_steps_; }

 private:
  XmlPtr<xmlDoc> document_;
  unsigned long max_steps_ = kBaseSteps;
};

XmlDocument::XmlDocument(std::unique_ptr<Tree> tree) : tree_(std::move(tree)) {}

XmlDocument::~XmlDocument() = default;

XmlDocument::ParseResult XmlDocument::Parse(const std::string& xml,
                                            std::unique_ptr<XmlDocument>& document,
                                            std::string& error) {
  document.reset();
  std::string prepared = xml;
  if (const char* const problem = PrepareXml(prepared)) {
    error = problem;
    return ParseResult::kRefused;
  }
  XmlPtr<xmlDoc> parsed = ParseTree(prepared, error);
  if (!parsed) return ParseResult::kRefused;
  document.reset(new XmlDocument(std::make_unique<Tree>(std::move(parsed))));
  return ParseResult::kParsed;
}

XmlDocument::QueryResult XmlDocument::Query(const std::string& query, std::string& text) const {
  if (query.find('\0') != std::string::npos || !xmlCheckUTF8(ToXml(query))) {
    return QueryResult::kNothing;
  }
  const ErrorCapture capture;
  const XmlPtr<xmlXPathContext> context(xmlXPathNewContext(tree_->document()));
  if (!context) return QueryResult::kNothing;
  context->node = reinterpret_cast<xmlNodePtr>(tree_->document());
  context->opLimit = tree_->max_steps();
  const XmlPtr<xmlXPathObject> result(xmlXPathEval(ToXml(query), context.get()));
  if (!HasItems(result.get())) return QueryResult::kNothing;
  const XmlPtr<xmlChar> first = TextOfFirstItem(result.get());
  if (!first) return QueryResult::kWithoutText;
  text = reinterpret_cast<const char*>(first.get());
  return QueryResult::kText;
}

}  // namespace platform
