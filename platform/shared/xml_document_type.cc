#include "platform/shared/xml_document_type.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <set>

namespace platform {
namespace {

constexpr char kSpace[] = " \t\r\n";
constexpr char kEntity[] = "<!ENTITY";
// The characters that a public identifier may contain in addition to letters and digits.
constexpr char kPublicCharacters[] = " \r\n-'()+,./:=?;!*#@$_%";
constexpr std::size_t kMaxExpansion = 1 << 20;
// The weight of a node without content, in bytes of text.
constexpr std::size_t kNodeWeight = 16;
constexpr int kMaxDepth = 40;

bool IsAt(const std::string& xml, std::size_t position, const char* expected) {
  return xml.compare(position, std::strlen(expected), expected) == 0;
}

// The following functions return the size of the document when they find nothing.

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

// Each function below returns whether a part of a declaration begins at `position`, and moves
// `position` past that part. After a failure, `position` is unspecified.

bool PassSpace(const std::string& xml, std::size_t& position) {
  const std::size_t begin = position;
  position = SkipSpace(xml, begin);
  return position > begin;
}

bool PassLiteral(const std::string& xml, std::size_t& position) {
  if (position >= xml.size() || (xml[position] != '"' && xml[position] != '\'')) return false;
  const std::size_t end = xml.find(xml[position], position + 1);
  if (end == std::string::npos) return false;
  const bool printable = std::none_of(
      xml.begin() + static_cast<std::ptrdiff_t>(position),
      xml.begin() + static_cast<std::ptrdiff_t>(end), [](char character) {
        return static_cast<unsigned char>(character) < ' ' && !std::strchr(kSpace, character);
      });
  position = end + 1;
  return printable;
}

// Treats characters beyond ASCII as letters.
bool PassName(const std::string& xml, std::size_t& position, std::size_t end) {
  const std::size_t begin = position;
  const auto is_letter = [](char character) {
    return std::isalpha(static_cast<unsigned char>(character)) || character == '_' ||
           character == ':' || static_cast<unsigned char>(character) >= 0x80;
  };
  while (position < end && (is_letter(xml[position]) || std::strchr("0123456789.-", xml[position])))
    ++position;
  return position > begin && is_letter(xml[begin]);
}

bool PassPublicLiteral(const std::string& xml, std::size_t& position) {
  const std::size_t begin = position + 1;
  if (!PassLiteral(xml, position)) return false;
  return std::all_of(xml.begin() + static_cast<std::ptrdiff_t>(begin),
                     xml.begin() + static_cast<std::ptrdiff_t>(position) - 1, [](char character) {
                       return std::isalnum(static_cast<unsigned char>(character)) ||
                              std::strchr(kPublicCharacters, character);
                     });
}

bool PassExternalIdentifier(const std::string& xml, std::size_t& position) {
  if (!IsExternalIdentifier(xml, position)) return false;
  const bool is_public = xml[position] == 'P';
  position += std::strlen("SYSTEM");
  if (is_public && !(PassSpace(xml, position) && PassPublicLiteral(xml, position))) return false;
  return PassSpace(xml, position) && PassLiteral(xml, position);
}

void Blank(std::string& xml, std::size_t begin, std::size_t end) {
  for (std::size_t i = begin; i < end; ++i) {
    if (xml[i] != '\n') xml[i] = ' ';
  }
}

// Appends a character in UTF-8.
void AppendCharacter(unsigned long code, std::string& text) {
  const auto append = [&text](unsigned long byte) { text += static_cast<char>(byte); };
  if (code < 0x80) return append(code);
  if (code < 0x800) {
    append(0xc0 | code >> 6);
  } else if (code < 0x10000) {
    append(0xe0 | code >> 12);
    append(0x80 | (code >> 6 & 0x3f));
  } else {
    append(0xf0 | code >> 18);
    append(0x80 | (code >> 12 & 0x3f));
    append(0x80 | (code >> 6 & 0x3f));
  }
  append(0x80 | (code & 0x3f));
}

// Replaces the character references in an entity's value, as parsers do when they read the
// declaration. The result may contain an "&" that begins another reference.
std::string WithCharacters(const std::string& value) {
  std::string resolved;
  std::size_t begin = 0;
  for (std::size_t found = value.find("&#"); found != std::string::npos;
       found = value.find("&#", found + 1)) {
    const bool hexadecimal = value[found + 2] == 'x';
    const char* const digits = value.c_str() + found + (hexadecimal ? 3 : 2);
    char* end = nullptr;
    const unsigned long code = std::strtoul(digits, &end, hexadecimal ? 16 : 10);
    if (*end != ';' || code == 0 || code > 0x10ffff) continue;  // the parser refuses this reference
    resolved.append(value, begin, found - begin);
    AppendCharacter(code, resolved);
    begin = static_cast<std::size_t>(end - value.c_str()) + 1;
  }
  return resolved + value.substr(begin);
}

// Returns whether the text from `position` to `end` is the rest of the declaration of an external
// general entity or of a parameter entity, after its name.
bool CompletesDeclaration(const std::string& xml, std::size_t position, std::size_t end,
                          bool is_parameter) {
  if (IsExternalIdentifier(xml, position)) {
    if (!PassExternalIdentifier(xml, position)) return false;
    std::size_t notation = position;
    if (!is_parameter && PassSpace(xml, notation) && IsAt(xml, notation, "NDATA")) {
      position = notation + std::strlen("NDATA");
      if (!PassSpace(xml, position) || !PassName(xml, position, end)) return false;
    }
  } else if (!PassLiteral(xml, position)) {
    return false;
  }
  return SkipSpace(xml, position) + 1 == end && xml[end - 1] == '>';
}

// Records the entity declaration from `begin` to `end` in `entities`, or blanks it out if it
// declares a parameter entity, an external entity, or a name that an external entity already has. A
// malformed declaration stays for the parser to report.
void TakeEntity(std::string& xml, std::size_t begin, std::size_t end, XmlEntities& entities,
                std::set<std::string>& external) {
  std::size_t position = begin + std::strlen(kEntity);
  if (!PassSpace(xml, position) || position >= end) return;
  const bool is_parameter = xml[position] == '%';
  if (is_parameter && !PassSpace(xml, ++position)) return;
  const std::size_t name_begin = position;
  if (!PassName(xml, position, end)) return;
  const std::string name = xml.substr(name_begin, position - name_begin);
  if (!PassSpace(xml, position)) return;
  if (is_parameter || IsExternalIdentifier(xml, position)) {
    if (!CompletesDeclaration(xml, position, end, is_parameter)) return;
    // The first of several declarations of a name counts.
    if (!is_parameter && entities.count(name) == 0) external.insert(name);
    Blank(xml, begin, end);
    return;
  }
  const std::size_t value = position;
  if (!PassLiteral(xml, position) || position >= end) return;
  if (external.count(name) > 0) {
    if (CompletesDeclaration(xml, value, end, false)) Blank(xml, begin, end);
    return;
  }
  entities.emplace(name, WithCharacters(xml.substr(value + 1, position - value - 2)));
}

// Adds up the weights of references, up to the limit.
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
    weights_[name] = kMaxExpansion + 1;  // an entity that contains itself expands without end
    const std::size_t weight =
        entity->second.size() + kNodeWeight + WeightOfReferences(entity->second, depth + 1);
    return weights_[name] = std::min(weight, kMaxExpansion + 1);
  }

  const XmlEntities& entities_;
  std::map<std::string, std::size_t> weights_;
};

}  // namespace

void IsolateXml(std::string& xml, XmlEntities& entities) {
  std::size_t position = SkipSpaceAndComments(xml, 0);
  if (!IsAt(xml, position, "<!DOCTYPE")) return;
  const std::size_t name = SkipSpace(xml, position + std::strlen("<!DOCTYPE"));
  const std::size_t name_end = FindFirstOf(xml, " \t\r\n[>", name);
  const std::size_t end = FindOutsideQuotes(xml, '[', '>', name_end);
  std::size_t identifier_end = SkipSpace(xml, name_end);
  if (identifier_end > name_end && PassExternalIdentifier(xml, identifier_end) &&
      SkipSpace(xml, identifier_end) == end) {
    Blank(xml, name_end, end);
  }
  position = end;
  if (position >= xml.size() || xml[position] == '>') return;
  std::set<std::string> external;
  while (position < xml.size() && xml[position] != ']') {
    position = SkipSpaceAndComments(xml, position + 1);
    if (!IsAt(xml, position, "<!")) continue;
    const std::size_t begin = position;
    position = FindOutsideQuotes(xml, '>', '>', begin);
    const std::size_t behind = std::min(position + 1, xml.size());
    if (IsAt(xml, begin, kEntity)) TakeEntity(xml, begin, behind, entities, external);
  }
}

bool IsExpansionSmall(const std::string& xml, const XmlEntities& entities) {
  return entities.empty() || Expansion(entities).WeightOfReferences(xml, 0) <= kMaxExpansion;
}

}  // namespace platform
