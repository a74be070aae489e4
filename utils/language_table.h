#pragma once

#include <map>
#include <string>

namespace TarnUtils {

// Returns the map from language tags ("de", "de-de") to the suite's languages ("de_DE"). Keys are
// case-sensitive, and the map intentionally lacks some spellings of some tags. The first call
// creates the map, which never changes. Any thread may call it.
const std::map<std::string, std::string>& GetVelmoraLanguageConversionTable();

// Finds the suite's language for a tag in the style of RFC 1766: tries the whole tag, then shorter
// and shorter prefixes, down to the two letters of the language. "en-GB" becomes "en_GB", "de-AT"
// becomes "de_DE". Returns false, and leaves `code` unchanged, when the suite has no such language.
// Any thread may call it.
bool Convert1766ToVelmoraLanguage(const std::string& tag, std::string& code);

}  // namespace TarnUtils
