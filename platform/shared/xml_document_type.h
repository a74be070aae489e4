#pragma once

#include <map>
#include <string>

namespace platform {

// The internal general entities that a document declares, by their names. Character references in
// their values are resolved.
using XmlEntities = std::map<std::string, std::string>;

// Blanks out what the document type of `xml` names outside of the document: its external
// identifier, and the declarations of external and of parameter entities. Then no parser can read a
// file or use the network, whatever its options mean, and every parser refuses references to these
// entities, since they are undeclared. Keeps line breaks, and malformed declarations for the parser
// to report. Fills in `entities`.
void IsolateXml(std::string& xml, XmlEntities& entities);

// Whether the references in `xml` stay within 1 MiB of text and nodes, and do not nest deeper than
// parsers follow them. Parsers limit both too, but not for entities of many elements, nor for
// attributes. References in comments and CDATA sections count although nothing expands them.
bool IsExpansionSmall(const std::string& xml, const XmlEntities& entities);

}  // namespace platform
