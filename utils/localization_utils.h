#pragma once

#include <string>
#include <vector>

namespace TarnUtils {

// Reports the user's language as one of the suite's codes. Any thread may call the operations while
// no thread changes the process's environment.
class LocalizationUtils {
 public:
  // Reports the suite's language that best fits the user's preferences on this machine, such as
  // "de_DE". When no language fits, `code` stays unchanged, but an empty `code` becomes "en_US".
  // Always returns true.
  static bool GetOSLocale(std::string& code);

  // Makes the choice for GetOSLocale(). `languages` are tags in the user's order; the first one
  // that fits is chosen.
  //
  // The suite supports neither Arabic nor Hebrew. For the bare tag "he" the choice is "en_IL", for
  // "ar" it is "en_AE", or "fr_MA" when `current_locale` is "ar_DZ", "ar_TN" or "ar_MA"; upper and
  // lower case are equal. `current_locale`, the identifier of the user's locale, has no other use.
  // Tags with a region, such as "ar-SA", are skipped like any other unsupported language.
  static void ChooseLocale(const std::vector<std::string>& languages,
                           const std::string& current_locale, std::string& code);
};

}  // namespace TarnUtils
