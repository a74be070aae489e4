#pragma once

#include <map>
#include <string>

namespace platform {

// The internal general entities that a document declares, by their names. Character references in
// their values are resolved.
using XmlEntities = std::map<std::string, std::string>;

// Blanks out everything in the document type of `xml` that refers to another resource: its external
// identifier, and the declarations of external entities and of parameter entities. Then no parser
// can read a file or use the network, regardless of its options, and every parser refuses
// references to these entities, because they are undeclared. Keeps line breaks. Does not change
// malformed declarations, so the parser reports them. Fills in `entities`, which must be empty.
void IsolateXml(std::string& xml, XmlEntities& entities);

// Returns whether the references in `xml` expand to at most 1 MiB and nest no deeper than parsers
// follow. Each reference counts as the bytes of its entity's value and a few bytes for a node.
// Parsers have limits of their own, but these ignore attributes and entities that contain many
// elements. Counts references in comments and CDATA sections, although parsers do not expand them.
bool IsExpansionSmall(const std::string& xml, const XmlEntities& entities);

}  // namespace platform
