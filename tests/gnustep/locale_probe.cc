// Prints the user's languages, one a line, and the identifier of the locale. Arguments may set the
// user's settings.

#include <cstdio>
#include <string>
#include <vector>

#include "platform/locale.h"

int main() {
  std::vector<std::string> languages;
  platform::GetPreferredLanguages(languages);
  for (const std::string& language : languages)
    std::puts(language.c_str());
  std::string identifier;
  if (platform::GetCurrentLocale(identifier)) std::printf("locale %s\n", identifier.c_str());
}
