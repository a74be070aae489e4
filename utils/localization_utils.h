#pragma once

#include <string>
#include <vector>

namespace TarnUtils {

// Reports the user's language as one of the suite's codes. Any thread may call the operations.
class LocalizationUtils {
 public:
  // Reports the suite's language that best fits the user's preferences on this machine, such as
  // "de_DE". When no language fits, `code` stays unchanged, but an empty `code` becomes "en_US".
  // Always returns true.
  static bool GetOSLocale(std::string& code);

  // Makes the choice for GetOSLocale(). `languages` are tags in the user's order, `current_locale`
  // is the identifier of the user's locale. The suite does not support Arabic and Hebrew; each has
  // a substitute for the bare tag "ar" or "he", in any case. With a region, as in "ar-SA", they are
  // skipped like any other unsupported language.
  static void ChooseLocale(const std::vector<std::string>& languages,
                           const std::string& current_locale, std::string& code);
};

}  // namespace TarnUtils
