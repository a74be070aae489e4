#include "utils/localization_utils.h"

#include "platform/autorelease_scope.h"
#include "platform/locale.h"
#include "utils/ascii_case.h"
#include "utils/language_table.h"

namespace TarnUtils {
namespace {

// Arabic speakers of the Maghreb are more likely to know French than English.
const char* SubstituteForArabic(const std::string& current_locale) {
  const std::string locale = ToLowerAscii(current_locale);
  const bool maghreb = locale == "ar_dz" || locale == "ar_tn" || locale == "ar_ma";
  return maghreb ? "fr_MA" : "en_AE";
}

bool ChooseForLanguage(const std::string& language, const std::string& current_locale,
                       std::string& code) {
  const std::string bare = ToLowerAscii(language);
  if (bare == "ar") {
    code = SubstituteForArabic(current_locale);
    return true;
  }
  if (bare == "he") {
    code = "en_IL";
    return true;
  }
  return Convert1766ToVelmoraLanguage(language, code);
}

}  // namespace

bool LocalizationUtils::GetOSLocale(std::string& code) {
  const platform::AutoreleaseScope scope;
  std::vector<std::string> languages;
  platform::GetPreferredLanguages(languages);
  std::string current_locale;
  platform::GetCurrentLocale(current_locale);
  ChooseLocale(languages, current_locale, code);
  return true;
}

void LocalizationUtils::ChooseLocale(const std::vector<std::string>& languages,
                                     const std::string& current_locale, std::string& code) {
  for (const std::string& language : languages) {
    if (ChooseForLanguage(language, current_locale, code)) return;
  }
  if (code.empty()) code = "en_US";
}

}  // namespace TarnUtils
