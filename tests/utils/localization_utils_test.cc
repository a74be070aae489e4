#include "utils/localization_utils.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/test_home.h"

namespace {

using TarnUtils::LocalizationUtils;

using Languages = std::vector<std::string>;

std::string Choice(const Languages& languages, const std::string& current_locale = "en_US") {
  std::string code;
  LocalizationUtils::ChooseLocale(languages, current_locale, code);
  return code;
}

TEST(ChooseLocaleTest, ChoosesFirstSupportedLanguage) {
  EXPECT_EQ(Choice({"fr-CA", "en"}), "fr_CA");
  EXPECT_EQ(Choice({"en", "fr-CA"}), "en_US");
  EXPECT_EQ(Choice({"xx", "zh-Hant-TW", "de"}), "zh_TW");
}

TEST(ChooseLocaleTest, ArabicFollowsCurrentLocale) {
  EXPECT_EQ(Choice({"ar", "en"}, "ar_MA"), "fr_MA");
  EXPECT_EQ(Choice({"ar", "en"}, "ar_DZ"), "fr_MA");
  EXPECT_EQ(Choice({"ar", "en"}, "ar_TN"), "fr_MA");
  EXPECT_EQ(Choice({"AR", "en"}, "AR_ma"), "fr_MA");
  EXPECT_EQ(Choice({"Ar"}, "Ar_Dz"), "fr_MA");
}

TEST(ChooseLocaleTest, ArabicElsewhereIsEmiratesEnglish) {
  for (const char* locale : {"ar_SA", "ar_AE", "ar", "ar-MA", "ar_MA.UTF-8", "fr_MA", ""})
    EXPECT_EQ(Choice({"ar", "de"}, locale), "en_AE") << locale;
}

TEST(ChooseLocaleTest, HebrewIsIsraeliEnglish) {
  EXPECT_EQ(Choice({"he"}), "en_IL");
  EXPECT_EQ(Choice({"HE", "de"}, "ar_MA"), "en_IL");
}

TEST(ChooseLocaleTest, ArabicAndHebrewWithRegionAreUnknown) {
  EXPECT_EQ(Choice({"ar-SA", "de"}), "de_DE");
  EXPECT_EQ(Choice({"ar_MA", "de"}, "ar_MA"), "de_DE");
  EXPECT_EQ(Choice({"he-IL", "fr"}), "fr_FR");
  EXPECT_EQ(Choice({"ar-SA", "he-IL", "heb", "ara"}, "ar_SA"), "en_US");
}

TEST(ChooseLocaleTest, OrderDecidesBetweenSubstituteAndLanguage) {
  EXPECT_EQ(Choice({"de", "ar"}, "ar_MA"), "de_DE");
  EXPECT_EQ(Choice({"xx", "he", "ar"}, "ar_MA"), "en_IL");
}

TEST(ChooseLocaleTest, DefaultsToEnglish) {
  EXPECT_EQ(Choice({}), "en_US");
  EXPECT_EQ(Choice({"xx", "yy"}, "de_DE"), "en_US");
  EXPECT_EQ(Choice({"", "e"}), "en_US");
}

TEST(ChooseLocaleTest, KeepsExistingCodeWithoutMatch) {
  std::string code = "before";
  LocalizationUtils::ChooseLocale({"xx"}, "de_DE", code);
  EXPECT_EQ(code, "before");
  LocalizationUtils::ChooseLocale({}, "de_DE", code);
  EXPECT_EQ(code, "before");
  LocalizationUtils::ChooseLocale({"xx", "it"}, "de_DE", code);
  EXPECT_EQ(code, "it_IT");
}

// Sets the environment of a session: its languages, without other settings of the user who runs the
// test.
class Session {
 public:
  explicit Session(const char* locale, const char* list = nullptr)
      : lang_("LANG", locale), language_("LANGUAGE", list) {}

  static std::string Code() {
    std::string code;
    EXPECT_TRUE(LocalizationUtils::GetOSLocale(code));
    return code;
  }

 private:
  ScopedVariable all_{"LC_ALL", nullptr};
  ScopedVariable messages_{"LC_MESSAGES", nullptr};
  ScopedVariable lang_;
  ScopedVariable language_;
};

TEST(GetOSLocaleTest, FollowsSession) {
  EXPECT_EQ(Session("de_AT.UTF-8").Code(), "de_DE");
  EXPECT_EQ(Session("fr_CA").Code(), "fr_CA");
  EXPECT_EQ(Session("zh_TW.UTF-8").Code(), "zh_TW");
  EXPECT_EQ(Session("zh_HK.UTF-8").Code(), "zh_TW");
  EXPECT_EQ(Session("zh_CN.GB18030").Code(), "zh_CN");
  EXPECT_EQ(Session("de_DE@euro").Code(), "de_DE");
}

TEST(GetOSLocaleTest, FollowsListOfLanguages) {
  EXPECT_EQ(Session("de_DE.UTF-8", "pt_PT:en").Code(), "pt_BR");
  EXPECT_EQ(Session("de_DE.UTF-8", "xx:fr_CA:en").Code(), "fr_CA");
  EXPECT_EQ(Session("de_DE.UTF-8", "zh_Hant_HK").Code(), "zh_TW");
  EXPECT_EQ(Session("de_DE.UTF-8", "xx:yy").Code(), "de_DE");
}

TEST(GetOSLocaleTest, SubstitutesBareArabicAndHebrew) {
  EXPECT_EQ(Session("ar_MA.UTF-8", "ar:en").Code(), "fr_MA");
  EXPECT_EQ(Session("de_DE.UTF-8", "ar:en").Code(), "en_AE");
  EXPECT_EQ(Session("ar").Code(), "en_AE");
  EXPECT_EQ(Session("en_US.UTF-8", "he").Code(), "en_IL");
}

TEST(GetOSLocaleTest, SkipsArabicWithRegion) {
  EXPECT_EQ(Session("ar_SA.UTF-8", "ar_SA:de").Code(), "de_DE");
  EXPECT_EQ(Session("ar_MA.UTF-8").Code(), "en_US");
}

TEST(GetOSLocaleTest, SessionWithoutLanguageIsEnglish) {
  EXPECT_EQ(Session(nullptr).Code(), "en_US");
  EXPECT_EQ(Session("C.UTF-8").Code(), "en_US");
  EXPECT_EQ(Session("sr_RS@latin").Code(), "en_US");
}

TEST(GetOSLocaleTest, SessionWithoutLanguageKeepsCode) {
  const Session session(nullptr);
  std::string code = "it_IT";
  EXPECT_TRUE(LocalizationUtils::GetOSLocale(code));
  EXPECT_EQ(code, "it_IT");
}

}  // namespace
