#include "platform/shared/xml_text.h"

#include <algorithm>

#include "platform/begins_with.h"
#include "platform/shared/xml_document_type.h"
#include "platform/xml_document.h"

namespace platform {
namespace {

constexpr char kMark[] = "\xEF\xBB\xBF";
// In bytes, without the dots after a truncated message.
constexpr std::size_t kMaxMessageSize = 200;

// Keeps the length of the declaration, so that positions in messages stay correct.
void BlankDeclaredEncoding(std::string& xml) {
  if (!BeginsWith(xml, "<?xml")) return;
  const std::size_t end = xml.find("?>");
  const std::size_t name = xml.find("encoding");
  const std::size_t quote = xml.find_first_of("\"'", name);
  if (name >= end || quote >= end) return;
  const std::size_t last = xml.find(xml[quote], quote + 1);
  if (last >= end) return;
  std::fill(xml.begin() + static_cast<std::ptrdiff_t>(name),
            xml.begin() + static_cast<std::ptrdiff_t>(last) + 1, ' ');
}

}  // namespace

const char* PrepareXml(std::string& xml) {
  if (xml.size() > kMaxXmlDocumentSize) return "the document is larger than 8 MiB";
  if (xml.find('\0') != std::string::npos) return "the document contains a NUL character";
  if (BeginsWith(xml, kMark)) xml.erase(0, sizeof kMark - 1);
  if (xml.empty()) return "the document is empty";
  BlankDeclaredEncoding(xml);
  XmlEntities entities;
  IsolateXml(xml, entities);
  if (!IsExpansionSmall(xml, entities)) return "the entities add more than 1 MiB";
  return nullptr;
}

std::string OneLine(std::string text) {
  text.erase(text.find_last_not_of('\n') + 1);
  for (char& character : text) {
    if (static_cast<unsigned char>(character) < ' ') character = ' ';
  }
  if (text.size() <= kMaxMessageSize) return text;
  std::size_t end = kMaxMessageSize;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
    --end;
  return text.substr(0, end) + "...";
}

}  // namespace platform
