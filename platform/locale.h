#pragma once

#include <string>
#include <vector>

namespace platform {

// These functions report the user's languages from the settings of the user's session. Both read
// the settings on each call. Any thread may call them while no thread changes the process's
// environment.

// Replaces the content of `languages` with the languages that the user prefers, in the user's
// order. The result is empty when the settings name no language.
//
// An entry is a tag such as "de", "de-AT", "zh-Hant" or "zh-Hant-TW", in the case that the settings
// use. On macOS an entry is whatever the settings contain. On Linux it is derived from the name of
// a locale and consists of ASCII letters, digits and hyphens, beginning with a letter; the locales
// "C" and "POSIX" name no language. An entry may occur twice. A tag with a region does not imply
// its language: "ar-SA" alone does not mean that any Arabic will do.
void GetPreferredLanguages(std::vector<std::string>& languages);

// Reports the identifier of the user's locale, such as "de_DE". Returns false, and leaves
// `identifier` unchanged, when the user has not chosen a locale. On macOS the user's own settings
// may follow the identifier ("de_DE@currency=EUR"). On Linux it has neither encoding nor modifier,
// and the locales "C" and "POSIX" count as no choice.
bool GetCurrentLocale(std::string& identifier);

}  // namespace platform
