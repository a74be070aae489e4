#pragma once

#include <map>
#include <string>

namespace TarnUtils {

// Returns the map from language tags ("de", "de-de") to the suite's languages ("de_DE"). Keys are
// case-sensitive, and the map intentionally lacks some spellings of some tags. The first call
// creates the map, which never changes. Any thread may call it.
const std::map<std::string, std::string>& GetVelmoraLanguageConversionTable();

// Finds the suite's language for a tag in the style of RFC 1766. "en-GB" becomes "en_GB", "de-AT"
// becomes "de_DE". Tries the whole tag, then its first 7 characters, its first 5 characters, the
// same in lower case, and its first 2 characters in lower case. Returns false, and leaves `code`
// unchanged, when the table contains none of them. Any thread may call it.
//
// These prefixes ignore hyphens, so a language of three letters can match one of two letters: "fil"
// becomes "fi_FI".
bool Convert1766ToVelmoraLanguage(const std::string& tag, std::string& code);

}  // namespace TarnUtils
