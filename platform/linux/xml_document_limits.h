#pragma once

#include <libxml/parser.h>
#include <cstddef>
#include <map>
#include <string>

namespace platform {

// Watches a parser: keeps it from everything outside of the document, and stops it when the
// document makes more of itself than it holds. The parser's own limits are on depth, on the length
// of a name or a text, and on some entities.
class XmlDocumentLimits {
 public:
  // For one document of `size` bytes. Outlives the use of `parser`, whose private pointer it takes.
  XmlDocumentLimits(xmlParserCtxtPtr parser, std::size_t size);
  XmlDocumentLimits(const XmlDocumentLimits&) = delete;
  XmlDocumentLimits& operator=(const XmlDocumentLimits&) = delete;

  // What the document was refused for; empty when it was not.
  const std::string& refusal() const { return refusal_; }

 private:
  // These are called by the parser.
  static void OnDocumentType(void* context, const xmlChar* name, const xmlChar* public_id,
                             const xmlChar* system_id);
  static void OnEntityDeclaration(void* context, const xmlChar* name, int type,
                                  const xmlChar* public_id, const xmlChar* system_id,
                                  xmlChar* content);
  static xmlEntityPtr FindEntity(void* context, const xmlChar* name);
  static xmlEntityPtr FindParameterEntity(void* context, const xmlChar* name);
  static void OnStartElement(void* context, const xmlChar* name, const xmlChar* prefix,
                             const xmlChar* uri, int namespace_count, const xmlChar** namespaces,
                             int attribute_count, int default_count, const xmlChar** attributes);

  static XmlDocumentLimits& Of(void* context);
  // What one reference to the entity adds to the document.
  std::size_t Weight(const xmlEntity* entity);
  // False when the document has used up what it may add to itself.
  bool Spend(std::size_t bytes);
  void Refuse(const std::string& reason);

  xmlParserCtxtPtr parser_;
  std::size_t size_;
  std::size_t spent_ = 0;
  std::map<const xmlEntity*, std::size_t> weights_;
  std::string refusal_;
};

}  // namespace platform
