#pragma once

#include <map>
#include <string>

namespace TarnUtils {

// Which of the suite's languages ("de_DE") stands for a language tag ("de", "de-de"). The keys are
// compared byte by byte, and by design not every tag has all of its spellings here. Made by the
// first call and never changed; any thread may call it.
const std::map<std::string, std::string>& GetVelmoraLanguageConversionTable();

// Finds the suite's language for a tag in the style of RFC 1766: for the whole tag if it is known,
// else for less and less of its beginning, down to the two letters of the language. "en-GB" is
// "en_GB", "de-AT" is "de_DE". False, with `code` as it was, when the suite has none. Any thread
// may call it.
bool Convert1766ToVelmoraLanguage(const std::string& tag, std::string& code);

}  // namespace TarnUtils
