#include "platform/locale.h"

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"

namespace platform {

void GetPreferredLanguages(std::vector<std::string>& languages) {
  languages.clear();
  const AutoreleaseScope scope;
  for (NSString* const language in [NSLocale preferredLanguages]) {
    std::string tag;
    if (FromFoundation(language, tag)) languages.push_back(tag);
  }
}

bool GetCurrentLocale(std::string& identifier) {
  const AutoreleaseScope scope;
  std::string name;
  if (!FromFoundation([[NSLocale currentLocale] localeIdentifier], name) || name.empty())
    return false;
  identifier = name;
  return true;
}

}  // namespace platform
