// Prints the user's languages, one in a line, and the identifier of the locale. Settings of the
// user can be given as arguments.

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
