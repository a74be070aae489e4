#include "platform/locale.h"

#include <algorithm>
#include <cstdlib>

namespace platform {
namespace {

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsTagCharacter(char c) { return IsAsciiLetter(c) || (c >= '0' && c <= '9') || c == '-'; }

// Returns whether `text` has the form of a language tag.
bool IsLanguageTag(const std::string& text) {
  return !text.empty() && IsAsciiLetter(text[0]) &&
         std::all_of(text.begin(), text.end(), IsTagCharacter);
}

// Returns the name of the locale for messages, by the rules of setlocale(), or an empty string.
// Does not call setlocale(), because the process keeps the locale "C".
std::string MessagesLocale() {
  for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value && *value) return value;
  }
  return "";
}

// Returns "de_AT" for "de_AT.UTF-8@euro".
std::string WithoutEncoding(const std::string& name) {
  return name.substr(0, name.find_first_of(".@"));
}

// Returns whether the locale `name` means the programs' own language. This includes "C.UTF-8".
bool IsLanguageless(const std::string& name) {
  const std::string bare = WithoutEncoding(name);
  return bare == "C" || bare == "POSIX";
}

// Returns the language tag of a locale's name, or an empty string when it names no language.
std::string TagOf(const std::string& name) {
  if (IsLanguageless(name)) return "";
  std::string tag = WithoutEncoding(name);
  std::replace(tag.begin(), tag.end(), '_', '-');
  return IsLanguageTag(tag) ? tag : "";
}

void AppendTag(const std::string& name, std::vector<std::string>& languages) {
  const std::string tag = TagOf(name);
  if (!tag.empty()) languages.push_back(tag);
}

}  // namespace

void GetPreferredLanguages(std::vector<std::string>& languages) {
  languages.clear();
  const char* const variable = std::getenv("LANGUAGE");
  const std::string list = variable ? variable : "";
  for (std::size_t begin = 0; begin < list.size();) {
    const std::size_t end = std::min(list.find(':', begin), list.size());
    AppendTag(list.substr(begin, end - begin), languages);
    begin = end + 1;
  }
  AppendTag(MessagesLocale(), languages);
}

bool GetCurrentLocale(std::string& identifier) {
  std::string tag = TagOf(MessagesLocale());
  if (tag.empty()) return false;
  std::replace(tag.begin(), tag.end(), '-', '_');
  identifier = tag;
  return true;
}

}  // namespace platform
