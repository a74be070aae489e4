// One input is the values of LANGUAGE, LC_ALL, LC_MESSAGES and LANG, each of which ends with a NUL
// byte or with the input. Each value is tried as a language tag, too.
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "platform/locale.h"
#include "utils/language_table.h"
#include "utils/localization_utils.h"

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

// The process's environment while it lives: nothing but the four variables. setenv() would keep
// every value that there ever was.
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
  std::array<char*, 5> pointers_{};  // the last one is null
};

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; }

std::string Lower(std::string text) {
  for (char& c : text)
    c = Lower(c);
  return text;
}

// What a tag is to become: the first of its beginnings that the table knows. Empty for none.
std::string Expected(const std::string& tag) {
  const std::string beginnings[] = {tag, tag.substr(0, 7), tag.substr(0, 5),
                                    Lower(tag.substr(0, 5)), Lower(tag.substr(0, 2))};
  const auto& table = TarnUtils::GetVelmoraLanguageConversionTable();
  for (const std::string& beginning : beginnings) {
    const auto found = table.find(beginning);
    if (found != table.end()) return found->second;
  }
  return "";
}

void CheckConversion(const std::string& tag) {
  std::string code = "before";
  const bool known = TarnUtils::Convert1766ToVelmoraLanguage(tag, code);
  const std::string expected = Expected(tag);
  Require(known == !expected.empty());
  Require(code == (known ? expected : "before"));
}

bool IsName(const std::string& text, char separator) {
  return !text.empty() && Lower(text[0]) >= 'a' && Lower(text[0]) <= 'z' &&
         std::all_of(text.begin(), text.end(), [separator](char c) {
           return (Lower(c) >= 'a' && Lower(c) <= 'z') || (c >= '0' && c <= '9') || c == separator;
         });
}

// The user's language as the list and the locale decide it.
std::string ExpectedLocale(const std::vector<std::string>& languages, const std::string& locale) {
  for (const std::string& language : languages) {
    const std::string lower = Lower(language);
    const std::string region = Lower(locale);
    if (lower == "he") return "en_IL";
    if (lower == "ar" && (region == "ar_dz" || region == "ar_tn" || region == "ar_ma"))
      return "fr_MA";
    if (lower == "ar") return "en_AE";
    if (!Expected(language).empty()) return Expected(language);
  }
  return "en_US";
}

void CheckSession(const Values& values) {
  const Environment environment(values);
  std::vector<std::string> languages = {"before"};
  platform::GetPreferredLanguages(languages);
  for (const std::string& language : languages) {
    Require(IsName(language, '-'));
    CheckConversion(language);
  }
  std::string locale = "before";
  if (platform::GetCurrentLocale(locale)) {
    Require(IsName(locale, '_'));
  } else {
    Require(locale == "before");
  }
  std::string code;
  Require(TarnUtils::LocalizationUtils::GetOSLocale(code));
  Require(code == ExpectedLocale(languages, locale));
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
