#pragma once

#include <string>
#include <vector>

namespace platform {

// What the user speaks, as the settings of the user's session say. Both look at these settings
// anew each time. Any thread may call them, while none changes the process's environment.

// Replaces `languages` by those that the user prefers, in the user's order; empty when the user
// prefers none to a program's own.
//
// An entry is a tag as "de", "de-AT", "zh-Hant" or "zh-Hant-TW", in the case in which the settings
// have it. On macOS it is what the settings say, whatever it is; on Linux it is made of the name of
// a locale, of ASCII letters, digits and hyphens, a letter first. The same one may come twice. A
// language is not added to its region: "ar-SA" alone does not mean that any Arabic will do.
void GetPreferredLanguages(std::vector<std::string>& languages);

// The identifier of the user's locale, as "de_DE", on macOS with settings behind it where the user
// has some ("de_DE@currency=EUR"). False, with `identifier` as it was, when the user has chosen
// none.
bool GetCurrentLocale(std::string& identifier);

}  // namespace platform
