#include "platform/locale.h"

#include <gtest/gtest.h>
#include <clocale>
#include <string>
#include <vector>

#include "tests/support/test_home.h"

namespace {

using Languages = std::vector<std::string>;

// Unsets the variables that define the locale. Each test sets those that it needs.
class LocaleTest : public testing::Test {
 protected:
  static Languages Preferred() {
    Languages languages = {"before"};
    platform::GetPreferredLanguages(languages);
    return languages;
  }

  // Returns the user's locale, or "none" when the user has not chosen one.
  static std::string Current() {
    std::string identifier = "none";
    const bool chosen = platform::GetCurrentLocale(identifier);
    EXPECT_EQ(chosen, identifier != "none");
    return identifier;
  }

 private:
  ScopedVariable language_{"LANGUAGE", nullptr};
  ScopedVariable all_{"LC_ALL", nullptr};
  ScopedVariable messages_{"LC_MESSAGES", nullptr};
  ScopedVariable lang_{"LANG", nullptr};
};

TEST_F(LocaleTest, IsEmptyWithoutSettings) {
  EXPECT_EQ(Preferred(), Languages());
  EXPECT_EQ(Current(), "none");
}

TEST_F(LocaleTest, ConvertsLocaleToTag) {
  const ScopedVariable lang("LANG", "de_AT");
  EXPECT_EQ(Preferred(), Languages({"de-AT"}));
  EXPECT_EQ(Current(), "de_AT");
}

TEST_F(LocaleTest, AcceptsLocaleWithoutRegion) {
  const ScopedVariable lang("LANG", "eo");
  EXPECT_EQ(Preferred(), Languages({"eo"}));
  EXPECT_EQ(Current(), "eo");
}

TEST_F(LocaleTest, DropsEncodingAndModifier) {
  for (const char* name :
       {"sr_RS.UTF-8", "sr_RS@latin", "sr_RS.UTF-8@latin", "sr_RS@latin.UTF-8"}) {
    const ScopedVariable lang("LANG", name);
    EXPECT_EQ(Preferred(), Languages({"sr-RS"})) << name;
    EXPECT_EQ(Current(), "sr_RS") << name;
  }
  const ScopedVariable lang("LANG", "sr@latin");
  EXPECT_EQ(Preferred(), Languages({"sr"}));
}

TEST_F(LocaleTest, UsesFirstNonEmptyVariable) {
  const ScopedVariable lang("LANG", "de_DE");
  const ScopedVariable messages("LC_MESSAGES", "");
  EXPECT_EQ(Current(), "de_DE");
  const ScopedVariable other_messages("LC_MESSAGES", "fr_FR");
  EXPECT_EQ(Current(), "fr_FR");
  EXPECT_EQ(Preferred(), Languages({"fr-FR"}));
  const ScopedVariable all("LC_ALL", "");
  EXPECT_EQ(Current(), "fr_FR");
  const ScopedVariable other_all("LC_ALL", "it_IT.UTF-8");
  EXPECT_EQ(Current(), "it_IT");
  EXPECT_EQ(Preferred(), Languages({"it-IT"}));
}

TEST_F(LocaleTest, IgnoresOtherCategories) {
  const ScopedVariable numeric("LC_NUMERIC", "it_IT");
  const ScopedVariable ctype("LC_CTYPE", "de_DE.UTF-8");
  EXPECT_EQ(Preferred(), Languages());
  EXPECT_EQ(Current(), "none");
}

TEST_F(LocaleTest, ListPrecedesLocale) {
  const ScopedVariable lang("LANG", "de_AT.UTF-8");
  const ScopedVariable list("LANGUAGE", "pt_PT:es_419:zh_Hant_TW:sr@latin:fr_CA.UTF-8");
  EXPECT_EQ(Preferred(), Languages({"pt-PT", "es-419", "zh-Hant-TW", "sr", "fr-CA", "de-AT"}));
  EXPECT_EQ(Current(), "de_AT");
}

TEST_F(LocaleTest, KeepsListUnchanged) {
  const ScopedVariable lang("LANG", "de_DE");
  const ScopedVariable list("LANGUAGE", "ar_SA:DE:de_DE:de");
  EXPECT_EQ(Preferred(), Languages({"ar-SA", "DE", "de-DE", "de", "de-DE"}));
}

TEST_F(LocaleTest, IgnoresEmptyListEntries) {
  const ScopedVariable lang("LANG", "de");
  for (const char* value : {"", ":", ":::"}) {
    const ScopedVariable list("LANGUAGE", value);
    EXPECT_EQ(Preferred(), Languages({"de"})) << value;
  }
  const ScopedVariable list("LANGUAGE", ":fr::en:");
  EXPECT_EQ(Preferred(), Languages({"fr", "en", "de"}));
}

TEST_F(LocaleTest, UsesListWithoutLocale) {
  const ScopedVariable list("LANGUAGE", "fr:en");
  EXPECT_EQ(Preferred(), Languages({"fr", "en"}));
  for (const char* name : {"C", "POSIX", "C.UTF-8", "C.utf8", "POSIX.UTF-8", "C@modifier"}) {
    const ScopedVariable lang("LANG", name);
    EXPECT_EQ(Preferred(), Languages({"fr", "en"})) << name;
    EXPECT_EQ(Current(), "none") << name;
  }
}

TEST_F(LocaleTest, LocaleWithoutLanguageHidesNextVariable) {
  const ScopedVariable lang("LANG", "de_DE");
  const ScopedVariable all("LC_ALL", "C");
  EXPECT_EQ(Preferred(), Languages());
  EXPECT_EQ(Current(), "none");
}

TEST_F(LocaleTest, SkipsEntryWithoutLanguage) {
  const ScopedVariable lang("LANG", "de_DE");
  for (const char* value : {"fr:C:en", "POSIX:fr:en", "fr:en:C.UTF-8"}) {
    const ScopedVariable list("LANGUAGE", value);
    EXPECT_EQ(Preferred(), Languages({"fr", "en", "de-DE"})) << value;
    EXPECT_EQ(Current(), "de_DE") << value;
  }
}

TEST_F(LocaleTest, SkipsInvalidEntry) {
  const ScopedVariable lang("LANG", "de_DE");
  const ScopedVariable list("LANGUAGE", "_DE:../fr:1:\xC3\xA4:e n:.UTF-8:@euro:-:x%s\n:en");
  EXPECT_EQ(Preferred(), Languages({"en", "de-DE"}));
}

TEST_F(LocaleTest, IgnoresInvalidLocale) {
  const ScopedVariable list("LANGUAGE", "en");
  for (const char* name : {"/usr/lib/locale/de_DE", "LC_CTYPE=de_DE;LC_TIME=C", ".UTF-8", "_"}) {
    const ScopedVariable lang("LANG", name);
    EXPECT_EQ(Preferred(), Languages({"en"})) << name;
    EXPECT_EQ(Current(), "none") << name;
  }
}

TEST_F(LocaleTest, AcceptsLongLists) {
  std::string value;
  for (int i = 0; i < 1000; ++i)
    value += "en_GB:";
  const ScopedVariable lang("LANG", "de");
  const ScopedVariable list("LANGUAGE", value.c_str());
  const Languages languages = Preferred();
  ASSERT_EQ(languages.size(), 1001U);
  EXPECT_EQ(languages[999], "en-GB");
  EXPECT_EQ(languages[1000], "de");
}

TEST_F(LocaleTest, KeepsLocaleOfProcess) {
  const ScopedVariable lang("LANG", "C.UTF-8");
  const std::string before = std::setlocale(LC_ALL, nullptr);
  Preferred();
  Current();
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

}  // namespace
