#include "platform/shared/xml_text.h"

#include <algorithm>

#include "platform/xml_document.h"

namespace platform {
namespace {

// The parser compares each one with each other.
constexpr int kMostAttributes = 1000;
// In bytes.
constexpr std::size_t kLongestMessage = 200;

bool BeginsName(char character) { return character != '!' && character != '?' && character != '/'; }

// The number of values in quotes in the tag that begins at `position`, counted no further than
// necessary. `position` then is behind what was looked at.
int CountValues(const std::string& xml, std::size_t& position) {
  int count = 0;
  while (position < xml.size() && xml[position] != '>' && count <= kMostAttributes) {
    const char character = xml[position++];
    if (character != '"' && character != '\'') continue;
    ++count;
    // Text or a comment that only looks like a tag: values have no "<".
    position = std::min(xml.find_first_of({character, '<'}, position), xml.size());
    if (position < xml.size() && xml[position] == character)
      ++position;
    else
      return count;
  }
  return count;
}

bool HasTooManyAttributes(const std::string& xml) {
  std::size_t position = xml.find('<');
  while (position < xml.size()) {
    ++position;
    if (position < xml.size() && BeginsName(xml[position]) &&
        CountValues(xml, position) > kMostAttributes) {
      return true;
    }
    position = xml.find('<', position);
  }
  return false;
}

}  // namespace

const char* ProblemOfXml(const std::string& xml) {
  if (xml.empty()) return "the document is empty";
  if (xml.size() > kLargestXmlDocument) return "the document is larger than 32 MiB";
  if (xml.find('\0') != std::string::npos) return "the document contains a NUL character";
  if (HasTooManyAttributes(xml)) return "an element has more than 1000 attributes";
  return nullptr;
}

std::string OneLine(std::string text) {
  text.erase(text.find_last_not_of('\n') + 1);
  for (char& character : text) {
    if (static_cast<unsigned char>(character) < ' ') character = ' ';
  }
  if (text.size() <= kLongestMessage) return text;
  std::size_t end = kLongestMessage;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
    --end;
  return text.substr(0, end) + "...";
}

}  // namespace platform
