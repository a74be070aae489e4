#include "platform/shared/xml_document_type.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace platform {
namespace {

constexpr char kSpace[] = " \t\r\n";
constexpr char kEntity[] = "<!ENTITY";
constexpr std::size_t kMaxExpansion = 1 << 20;
// The weight of a node without content, in bytes of text.
constexpr std::size_t kNodeWeight = 16;
constexpr int kMaxDepth = 40;

bool IsAt(const std::string& xml, std::size_t position, const char* expected) {
  return xml.compare(position, std::strlen(expected), expected) == 0;
}

// These return the size of the document when they find nothing.

std::size_t FindFirstOf(const std::string& xml, const char* characters, std::size_t position) {
  return std::min(xml.find_first_of(characters, position), xml.size());
}

std::size_t SkipSpace(const std::string& xml, std::size_t position) {
  return std::min(xml.find_first_not_of(kSpace, position), xml.size());
}

std::size_t FindEndOf(const char* end, const std::string& xml, std::size_t position) {
  const std::size_t found = xml.find(end, position);
  return found == std::string::npos ? xml.size() : found + std::strlen(end);
}

std::size_t SkipSpaceAndComments(const std::string& xml, std::size_t position) {
  for (;;) {
    position = SkipSpace(xml, position);
    if (IsAt(xml, position, "<!--")) {
      position = FindEndOf("-->", xml, position + 4);
    } else if (IsAt(xml, position, "<?")) {
      position = FindEndOf("?>", xml, position + 2);
    } else {
      return position;
    }
  }
}

std::size_t FindOutsideQuotes(const std::string& xml, char first, char second,
                              std::size_t position) {
  while (position < xml.size() && xml[position] != first && xml[position] != second) {
    const char quote = xml[position++];
    if (quote != '"' && quote != '\'') continue;
    position = std::min(xml.find(quote, position), xml.size() - 1) + 1;
  }
  return position;
}

bool IsExternalIdentifier(const std::string& xml, std::size_t position) {
  return IsAt(xml, position, "SYSTEM") || IsAt(xml, position, "PUBLIC");
}

void Blank(std::string& xml, std::size_t begin, std::size_t end) {
  for (std::size_t i = begin; i < end; ++i) {
    if (xml[i] != '\n') xml[i] = ' ';
  }
}

// Resolves references to the character "&", and no others.
bool ResolveAmpersands(std::string& value) {
  std::string resolved;
  std::size_t begin = 0;
  for (std::size_t found = value.find("&#"); found != std::string::npos;
       found = value.find("&#", found + 1)) {
    const bool hexadecimal = value[found + 2] == 'x';
    const char* const digits = value.c_str() + found + (hexadecimal ? 3 : 2);
    char* end = nullptr;
    if (std::strtoul(digits, &end, hexadecimal ? 16 : 10) != '&' || *end != ';') continue;
    resolved.append(value, begin, found - begin).append(1, '&');
    begin = static_cast<std::size_t>(end - value.c_str()) + 1;
    if (value[FindFirstOf(value, "&;", begin)] == '&') return false;
  }
  value = resolved + value.substr(begin);
  return true;
}

// Takes the entity declaration from `begin` to `end`, or blanks it out. A malformed declaration
// stays for the parser to report.
bool TakeEntity(std::string& xml, std::size_t begin, std::size_t end, XmlEntities& entities) {
  const std::size_t name = SkipSpace(xml, begin + std::strlen(kEntity));
  const std::size_t name_end = FindFirstOf(xml, kSpace, name);
  const std::size_t value = SkipSpace(xml, name_end);
  if (name >= end) return true;
  if (xml[name] == '%' || IsExternalIdentifier(xml, value)) {
    Blank(xml, begin, end);
    return true;
  }
  if (value >= end || (xml[value] != '"' && xml[value] != '\'')) return true;
  const std::size_t value_end = xml.find(xml[value], value + 1);
  if (value_end >= end) return true;
  std::string text = xml.substr(value + 1, value_end - value - 1);
  if (!ResolveAmpersands(text)) return false;
  entities.emplace(xml.substr(name, name_end - name), text);  // of one name the first counts
  return true;
}

// Adds up the weights of references, as far as the limit.
class Expansion {
 public:
  explicit Expansion(const XmlEntities& entities) : entities_(entities) {}

  std::size_t WeightOfReferences(const std::string& text, int depth) {
    std::size_t sum = 0;
    for (std::size_t begin = text.find('&'); begin != std::string::npos && sum <= kMaxExpansion;
         begin = text.find('&', begin + 1)) {
      const std::size_t end = FindFirstOf(text, ";&<", begin + 1);
      sum += WeightOf(text.substr(begin + 1, end - begin - 1), depth);
    }
    return sum;
  }

 private:
  std::size_t WeightOf(const std::string& name, int depth) {
    const auto entity = entities_.find(name);
    if (entity == entities_.end()) return 0;
    if (depth > kMaxDepth) return kMaxExpansion + 1;
    const auto known = weights_.find(name);
    if (known != weights_.end()) return known->second;
    weights_[name] = kMaxExpansion + 1;  // an entity that contains itself has no end
    const std::size_t weight =
        entity->second.size() + kNodeWeight + WeightOfReferences(entity->second, depth + 1);
    return weights_[name] = std::min(weight, kMaxExpansion + 1);
  }

  const XmlEntities& entities_;
  std::map<std::string, std::size_t> weights_;
};

}  // namespace

bool IsolateXml(std::string& xml, XmlEntities& entities) {
  std::size_t position = SkipSpaceAndComments(xml, 0);
  if (!IsAt(xml, position, "<!DOCTYPE")) return true;
  const std::size_t name = SkipSpace(xml, position + std::strlen("<!DOCTYPE"));
  const std::size_t name_end = FindFirstOf(xml, " \t\r\n[>", name);
  const std::size_t end = FindOutsideQuotes(xml, '[', '>', name_end);
  if (IsExternalIdentifier(xml, SkipSpace(xml, name_end))) Blank(xml, name_end, end);
  position = end;
  if (position >= xml.size() || xml[position] == '>') return true;
  while (position < xml.size() && xml[position] != ']') {
    position = SkipSpaceAndComments(xml, position + 1);
    if (!IsAt(xml, position, "<!")) continue;
    const std::size_t begin = position;
    position = FindOutsideQuotes(xml, '>', '>', begin);
    const std::size_t behind = std::min(position + 1, xml.size());
    if (IsAt(xml, begin, kEntity) && !TakeEntity(xml, begin, behind, entities)) return false;
  }
  return true;
}

bool IsExpansionSmall(const std::string& xml, const XmlEntities& entities) {
  return entities.empty() || Expansion(entities).WeightOfReferences(xml, 0) <= kMaxExpansion;
}

}  // namespace platform
