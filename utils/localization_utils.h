#pragma once

#include <string>
#include <vector>

namespace TarnUtils {

// The user's language, in the codes of the suite. Any thread may call the operations.
class LocalizationUtils {
 public:
  // The suite's language that fits best what the user prefers on this machine, as "de_DE". When
  // none fits, a `code` that is not empty stays as it was, and an empty one becomes "en_US". Always
  // true.
  static bool GetOSLocale(std::string& code);

  // The choice that GetOSLocale makes: `languages` are tags in the user's order, `current_locale`
  // is the identifier of the user's locale. Arabic and Hebrew, which the suite does not speak, each
  // have a substitute, given for the bare "ar" and "he" in any case of their letters; with a
  // region, as in "ar-SA", they are passed over like any other language that the suite does not
  // have.
  static void ChooseLocale(const std::vector<std::string>& languages,
                           const std::string& current_locale, std::string& code);
};

}  // namespace TarnUtils
