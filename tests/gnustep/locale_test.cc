#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/test_home.h"

namespace {

using Lines = std::vector<std::string>;

// Returns the probe's output with these settings. GNUstep appends English to each list.
Lines WithSettings(const std::vector<std::string>& settings) {
  const TestHome home;
  Lines command = {LOCALE_PROBE};
  command.insert(command.end(), settings.begin(), settings.end());
  ChildProcess probe(command, {});
  Lines lines;
  for (std::string line; probe.ReadLine(line);)
    lines.push_back(line);
  EXPECT_EQ(probe.Wait(), 0);
  return lines;
}

TEST(FoundationLocaleTest, LanguagesAreInOrderOfUser) {
  EXPECT_EQ(WithSettings({"-NSLanguages", "(fr, de-AT, zh-Hant-TW)", "-Locale", "de_AT"}),
            Lines({"fr", "de-AT", "zh-Hant-TW", "en", "locale de_AT"}));
  EXPECT_EQ(WithSettings({"-NSLanguages", "(ar)", "-Locale", "ar_MA"}),
            Lines({"ar", "en", "locale ar_MA"}));
}

TEST(FoundationLocaleTest, AcceptsAnyLanguageSetting) {
  EXPECT_EQ(WithSettings({"-NSLanguages", "(zh_HK, \"../fr\", \"1\")", "-Locale", "de"}),
            Lines({"zh_HK", "../fr", "1", "en", "locale de"}));
}

TEST(FoundationLocaleTest, IdentifierIncludesLocaleSettings) {
  EXPECT_EQ(WithSettings({"-NSLanguages", "(de)", "-Locale", "de_DE@currency=EUR"}).back(),
            "locale de_DE@currency=EUR");
}

}  // namespace
