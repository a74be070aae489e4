#include "platform/linux/xml_document_limits.h"

#include <libxml/SAX2.h>
#include <algorithm>

namespace platform {
namespace {

// In scope at one place. For each name the parser goes through all of them.
constexpr int kMostNamespaces = 256;
// Several steps over a document type declaration grow with the square of its length.
constexpr std::size_t kLargestWithDocumentType = 64 << 10;
// What entities and default attributes may add to a document. An element costs about thirty times
// the memory of its text.
constexpr std::size_t kMostAdded = 1 << 20;
// A node without content.
constexpr std::size_t kNodeWeight = 16;

}  // namespace

XmlDocumentLimits::XmlDocumentLimits(xmlParserCtxtPtr parser, std::size_t size)
    : parser_(parser), size_(size) {
  parser->_private = this;
  xmlSAXHandler& handler = *parser->sax;
  handler.internalSubset = OnDocumentType;
  handler.externalSubset = nullptr;
  handler.resolveEntity = nullptr;
  handler.entityDecl = OnEntityDeclaration;
  handler.getEntity = FindEntity;
  handler.getParameterEntity = FindParameterEntity;
  handler.startElementNs = OnStartElement;
}

XmlDocumentLimits& XmlDocumentLimits::Of(void* context) {
  return *static_cast<XmlDocumentLimits*>(static_cast<xmlParserCtxtPtr>(context)->_private);
}

void XmlDocumentLimits::OnDocumentType(void* context, const xmlChar* name, const xmlChar* public_id,
                                       const xmlChar* system_id) {
  XmlDocumentLimits& limits = Of(context);
  if (limits.size_ > kLargestWithDocumentType) {
    limits.Refuse("a document type declaration in a document of more than 64 KiB");
    return;
  }
  xmlSAX2InternalSubset(context, name, public_id, system_id);
}

void XmlDocumentLimits::OnEntityDeclaration(void* context, const xmlChar* name, int type,
                                            const xmlChar* public_id, const xmlChar* system_id,
                                            xmlChar* content) {
  // All others stand for something outside of the document, or are refused when they are used.
  if (type != XML_INTERNAL_GENERAL_ENTITY) return;
  // The new one may be part of those that were looked at before.
  Of(context).weights_.clear();
  xmlSAX2EntityDecl(context, name, type, public_id, system_id, content);
}

xmlEntityPtr XmlDocumentLimits::FindEntity(void* context, const xmlChar* name) {
  xmlEntity* const entity = xmlSAX2GetEntity(context, name);
  if (!entity || entity->etype != XML_INTERNAL_GENERAL_ENTITY) return entity;
  XmlDocumentLimits& limits = Of(context);
  return limits.Spend(limits.Weight(entity)) ? entity : nullptr;
}

xmlEntityPtr XmlDocumentLimits::FindParameterEntity(void* context, const xmlChar* /*name*/) {
  Of(context).Refuse("a reference to a parameter entity");
  return nullptr;
}

void XmlDocumentLimits::OnStartElement(void* context, const xmlChar* name, const xmlChar* prefix,
                                       const xmlChar* uri, int namespace_count,
                                       const xmlChar** namespaces, int attribute_count,
                                       int default_count, const xmlChar** attributes) {
  XmlDocumentLimits& limits = Of(context);
  // Each attribute takes five pointers, of which the last two enclose its value, and each namespace
  // in scope two. Default attributes are the last ones.
  if (limits.parser_->nsNr / 2 > kMostNamespaces) {
    limits.Refuse("too many namespace declarations");
    return;
  }
  const xmlChar* const* default_attribute = attributes + (attribute_count - default_count) * 5L;
  for (int i = 0; i < default_count; ++i, default_attribute += 5) {
    const auto length = default_attribute[4] - default_attribute[3];
    if (!limits.Spend(static_cast<std::size_t>(length))) return;
  }
  xmlSAX2StartElementNs(context, name, prefix, uri, namespace_count, namespaces, attribute_count,
                        default_count, attributes);
}

std::size_t XmlDocumentLimits::Weight(const xmlEntity* entity) {
  const auto known = weights_.find(entity);
  if (known != weights_.end()) return known->second;
  // One that contains itself ends here; the parser reports it.
  weights_[entity] = 0;
  const std::string content = reinterpret_cast<const char*>(entity->content);
  std::size_t weight = content.size();
  for (std::size_t begin = content.find('&'); begin != std::string::npos;
       begin = content.find('&', begin + 1)) {
    const std::string name = content.substr(begin + 1, content.find(';', begin) - begin - 1);
    const xmlEntity* const inner =
        xmlGetDocEntity(parser_->myDoc, reinterpret_cast<const xmlChar*>(name.c_str()));
    if (inner && inner->etype == XML_INTERNAL_GENERAL_ENTITY) weight += Weight(inner);
    weight = std::min(weight, kMostAdded);
  }
  weights_[entity] = weight;
  return weight;
}

bool XmlDocumentLimits::Spend(std::size_t bytes) {
  spent_ += bytes + kNodeWeight;
  if (spent_ <= kMostAdded) return true;
  Refuse("entities or default attributes that add more than 1 MiB");
  return false;
}

void XmlDocumentLimits::Refuse(const std::string& reason) {
  if (refusal_.empty()) {
    refusal_ = "line " + std::to_string(parser_->input ? parser_->input->line : 0) + ": " + reason;
  }
  xmlStopParser(parser_);
}

}  // namespace platform
