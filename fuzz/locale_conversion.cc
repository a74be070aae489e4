// One input is the values of LANGUAGE, LC_ALL, LC_MESSAGES and LANG, separated by NUL bytes. The
// input and each value are converted as language tags, too.
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "platform/locale.h"
#include "utils/ascii_case.h"
#include "utils/language_table.h"
#include "utils/localization_utils.h"

using TarnUtils::LocalizationUtils;
using TarnUtils::ToLowerAscii;

namespace {

using Values = std::array<std::string, 4>;

Values SplitAtNul(const std::string& input) {
  Values values;
  std::size_t begin = 0;
  for (std::string& value : values) {
    const std::size_t end = std::min(input.find('\0', begin), input.size());
    value = input.substr(begin, end - begin);
    begin = std::min(end + 1, input.size());
  }
  return values;
}

// Replaces the process's environment with the four variables while it lives. setenv() would leak
// each value.
class Environment {
 public:
  explicit Environment(const Values& values) : former_(environ) {
    constexpr const char* kNames[] = {"LANGUAGE=", "LC_ALL=", "LC_MESSAGES=", "LANG="};
    for (std::size_t i = 0; i < values.size(); ++i) {
      entries_[i] = kNames[i] + values[i];
      pointers_[i] = entries_[i].data();
    }
    environ = pointers_.data();
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() { environ = former_; }

 private:
  char** const former_;
  Values entries_;
  std::array<char*, 5> pointers_{};  // ends with a null pointer
};

// Returns the suite's language for a tag, empty when the suite has none.
std::string Convert(const std::string& tag) {
  std::string code = "before";
  if (TarnUtils::Convert1766ToVelmoraLanguage(tag, code)) return code;
  Require(code == "before");
  return "";
}

bool IsKnownTag(const std::string& tag) {
  return TarnUtils::GetVelmoraLanguageConversionTable().count(tag) != 0;
}

void CheckConversion(const std::string& tag) {
  const std::string code = Convert(tag);
  // The two letters of the language decide whether the suite has it.
  const std::string language = ToLowerAscii(tag.substr(0, 2));
  Require(code.empty() == !IsKnownTag(language));
  if (code.empty()) return;
  // The code is a known tag of the same language, and stands for itself.
  Require(IsKnownTag(code) && code.substr(0, 2) == language);
  Require(Convert(code) == code);
  // Text after a known region or script changes nothing.
  for (const std::size_t length : {5U, 7U}) {
    const std::string beginning = tag.substr(0, length);
    if (tag.size() > length && !IsKnownTag(tag) && IsKnownTag(beginning))
      Require(code == Convert(beginning));
  }
}

bool IsName(const std::string& text, char separator) {
  return !text.empty() && ToLowerAscii(text[0]) >= 'a' && ToLowerAscii(text[0]) <= 'z' &&
         std::all_of(text.begin(), text.end(), [separator](char c) {
           const char lower = ToLowerAscii(c);
           return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || c == separator;
         });
}

// Arabic and Hebrew have substitutes.
bool HasSubstitute(const std::string& language) {
  const std::string lower = ToLowerAscii(language);
  return lower == "ar" || lower == "he";
}

void CheckChoice(std::vector<std::string> languages, const std::string& locale) {
  std::string code;
  LocalizationUtils::ChooseLocale(languages, locale, code);
  const bool substituted = code == "fr_MA" || code == "en_AE" || code == "en_IL";
  Require(substituted || IsKnownTag(code));
  Require(!substituted || std::any_of(languages.begin(), languages.end(), HasSubstitute));
  if (!languages.empty()) {
    Require(substituted || !HasSubstitute(languages[0]));
    const std::string first = Convert(languages[0]);
    Require(first.empty() || HasSubstitute(languages[0]) || code == first);
  }

  // Without a language that fits, a code stays and an empty one becomes the default.
  std::string kept = "before";
  LocalizationUtils::ChooseLocale(languages, locale, kept);
  const bool fits = kept != "before";
  Require(code == (fits ? kept : "en_US"));

  // A language at the end counts only if no other fits; a language in front always counts.
  languages.push_back("sv");
  LocalizationUtils::ChooseLocale(languages, locale, kept);
  Require(kept == (fits ? code : "sv_SE"));
  languages.insert(languages.begin(), "da");
  LocalizationUtils::ChooseLocale(languages, locale, kept);
  Require(kept == "da_DK");
}

void CheckSession(const Values& values) {
  const Environment environment(values);
  std::vector<std::string> languages = {"?"};
  platform::GetPreferredLanguages(languages);
  for (const std::string& language : languages) {
    Require(IsName(language, '-'));
    CheckConversion(language);
  }
  std::string locale = "?";
  const bool has_locale = platform::GetCurrentLocale(locale);
  Require(has_locale ? IsName(locale, '_') : locale == "?");
  CheckChoice(languages, locale);

  std::string code;
  Require(LocalizationUtils::GetOSLocale(code));
  std::string chosen;
  LocalizationUtils::ChooseLocale(languages, has_locale ? locale : "", chosen);
  Require(code == chosen);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  CheckConversion(input);
  const Values values = SplitAtNul(input);
  for (const std::string& value : values)
    CheckConversion(value);
  CheckSession(values);
  return 0;
}
