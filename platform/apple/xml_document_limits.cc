#include "platform/apple/xml_document_limits.h"

#include <algorithm>
#include <map>

namespace platform {
namespace {

constexpr int kMostLevels = 250;
// Several steps over a document type declaration grow with the square of its length.
constexpr std::size_t kLargestWithDocumentType = 64 << 10;
// What entities and default attributes may add to a document, in bytes.
constexpr std::size_t kMostAdded = 1 << 20;
// A node without content.
constexpr std::size_t kNodeWeight = 16;

constexpr char kSpace[] = " \t\r\n";
constexpr char kEntity[] = "<!ENTITY";

bool IsAt(const std::string& text, std::size_t position, const char* expected) {
  return text.compare(position, std::string(expected).size(), expected) == 0;
}

// Behind the next `end`, or at the end of the text.
std::size_t Behind(const std::string& text, std::size_t position, const char* end) {
  const std::size_t found = text.find(end, position);
  return found == std::string::npos ? text.size() : found + std::string(end).size();
}

// Behind the tag that begins at `position`; a ">" in quotes does not end it.
std::size_t BehindTag(const std::string& xml, std::size_t position) {
  while (position < xml.size() && xml[position] != '>') {
    const char character = xml[position++];
    if (character == '"' || character == '\'') {
      position = std::min(xml.find(character, position), xml.size());
      if (position < xml.size()) ++position;
    }
  }
  return std::min(position + 1, xml.size());
}

using Entities = std::map<std::string, std::string>;

// Collects the entities that the document declares. Returns what is wrong with them, or null.
const char* Collect(const std::string& xml, Entities& entities) {
  for (std::size_t position = xml.find(kEntity); position != std::string::npos;
       position = xml.find(kEntity, position)) {
    position += sizeof kEntity - 1;
    const std::size_t name = xml.find_first_not_of(kSpace, position);
    const std::size_t name_end = xml.find_first_of(kSpace, name);
    const std::size_t value = xml.find_first_not_of(kSpace, name_end);
    if (value == std::string::npos) return "a declaration that is cut off";
    if (xml[name] == '%') return "a parameter entity";
    if (xml[value] != '"' && xml[value] != '\'') return "an entity from outside of the document";
    const std::size_t value_end = xml.find(xml[value], value + 1);
    if (value_end == std::string::npos) return "a declaration that is cut off";
    const std::string content = xml.substr(value + 1, value_end - value - 1);
    // It may be the "&" of another reference.
    if (content.find("&#") != std::string::npos) return "a character reference in an entity";
    entities.emplace(xml.substr(name, name_end - name), content);  // the first one counts
    position = value_end;
  }
  return nullptr;
}

// What all references in a text add to the document, at most a little more than the limit.
class Weights {
 public:
  explicit Weights(const Entities& entities) : entities_(entities) {}

  std::size_t OfReferences(const std::string& text) {
    std::size_t sum = 0;
    for (std::size_t begin = text.find('&'); begin != std::string::npos && sum <= kMostAdded;
         begin = text.find('&', begin + 1)) {
      sum += Of(text.substr(begin + 1, text.find(';', begin) - begin - 1));
    }
    return sum;
  }

 private:
  std::size_t Of(const std::string& name) {
    const auto entity = entities_.find(name);
    if (entity == entities_.end()) return 0;
    const auto known = known_.find(name);
    if (known != known_.end()) return known->second;
    known_[name] = kMostAdded + 1;  // one that contains itself has no end
    const std::size_t weight = entity->second.size() + kNodeWeight + OfReferences(entity->second);
    return known_[name] = std::min(weight, kMostAdded + 1);
  }

  const Entities& entities_;
  std::map<std::string, std::size_t> known_;
};

const char* ProblemOfDocumentType(const std::string& xml) {
  if (xml.find("<!DOCTYPE") == std::string::npos) return nullptr;
  if (xml.size() > kLargestWithDocumentType) {
    return "a document type declaration in a document of more than 64 KiB";
  }
  Entities entities;
  if (const char* const problem = Collect(xml, entities)) return problem;
  if (xml.find("<!ATTLIST") != std::string::npos) {
    const auto tags = static_cast<std::size_t>(std::count(xml.begin(), xml.end(), '<'));
    if (!entities.empty() || tags * xml.size() > kMostAdded) {
      return "too many elements for a document that declares attributes";
    }
  }
  return Weights(entities).OfReferences(xml) > kMostAdded ? "entities that add more than 1 MiB"
                                                          : nullptr;
}

}  // namespace

bool IsTooDeep(const std::string& xml) {
  int levels = 0;
  for (std::size_t position = xml.find('<'); position < xml.size();
       position = xml.find('<', position)) {
    if (IsAt(xml, position, "<!--")) {
      position = Behind(xml, position + 4, "-->");
    } else if (IsAt(xml, position, "<![CDATA[")) {
      position = Behind(xml, position, "]]>");
    } else if (IsAt(xml, position, "<?")) {
      position = Behind(xml, position, "?>");
    } else if (IsAt(xml, position, "<!")) {
      position += 2;
    } else if (IsAt(xml, position, "</")) {
      --levels;
      position += 2;
    } else {
      position = BehindTag(xml, position + 1);
      if (position < 2 || xml[position - 2] != '/') ++levels;
      if (levels > kMostLevels) return true;
    }
  }
  return false;
}

const char* ProblemForTheParser(const std::string& xml) {
  if (const char* const problem = ProblemOfDocumentType(xml)) return problem;
  return IsTooDeep(xml) ? "elements in more than 250 levels" : nullptr;
}

std::string WithoutDeclaredEncoding(std::string xml) {
  if (!IsAt(xml, 0, "<?xml")) return xml;
  const std::size_t end = Behind(xml, 0, "?>");
  const std::size_t name = xml.find("encoding", 0);
  const std::size_t quote = xml.find_first_of("\"'", name);
  if (name >= end || quote >= end) return xml;
  const std::size_t last = xml.find(xml[quote], quote + 1);
  if (last >= end) return xml;
  std::fill(xml.begin() + static_cast<std::ptrdiff_t>(name),
            xml.begin() + static_cast<std::ptrdiff_t>(last) + 1, ' ');
  return xml;
}

}  // namespace platform
