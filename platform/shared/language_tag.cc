#include "platform/shared/language_tag.h"

#include <algorithm>

namespace platform {
namespace {

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsTagCharacter(char c) { return IsAsciiLetter(c) || (c >= '0' && c <= '9') || c == '-'; }

}  // namespace

bool IsLanguageTag(const std::string& text) {
  return !text.empty() && IsAsciiLetter(text[0]) &&
         std::all_of(text.begin(), text.end(), IsTagCharacter);
}

}  // namespace platform
