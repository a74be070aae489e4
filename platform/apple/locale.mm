#include "platform/locale.h"

#include <algorithm>

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/shared/language_tag.h"

namespace platform {

void GetPreferredLanguages(std::vector<std::string>& languages) {
  languages.clear();
  const AutoreleaseScope scope;
  for (NSString* const language in [NSLocale preferredLanguages]) {
    std::string tag;
    if (FromFoundation(language, tag) && IsLanguageTag(tag)) languages.push_back(tag);
  }
}

bool GetCurrentLocale(std::string& identifier) {
  const AutoreleaseScope scope;
  std::string name;
  if (!FromFoundation([[NSLocale currentLocale] localeIdentifier], name)) return false;
  // What follows an "@" are settings that have nothing to do with the language.
  name.resize(std::min(name.find('@'), name.size()));
  if (name.empty()) return false;
  identifier = name;
  return true;
}

}  // namespace platform
