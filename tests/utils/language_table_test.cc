#include "utils/language_table.h"

#include <gtest/gtest.h>
#include <atomic>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using TarnUtils::Convert1766ToVelmoraLanguage;
using TarnUtils::GetVelmoraLanguageConversionTable;

struct Language {
  const char* code;
  const char* keys;  // separated by spaces
};

// Sorted by the suite's languages; the table is sorted by tags.
constexpr Language kLanguages[] = {
    {"cs_CZ", "cs cs-cz cs_cz cs_CZ"},
    {"da_DK", "da da-dk da_dk da_DK"},
    {"de_DE", "de de-de de_de de_DE"},
    {"el_GR", "el el-gr el_gr el_GR"},
    {"en_GB", "en-gb en_gb en_GB"},
    {"en_US", "en en-us en_us en_US"},
    {"es_ES", "es es-es es_es es_ES"},
    {"es_LA", "es-la es_la es_LA"},
    {"es_NA", "es-na es_na es_NA"},
    {"fi_FI", "fi fi-fi fi_fi fi_FI"},
    {"fr_CA", "fr-ca fr_ca fr_CA"},
    {"fr_FR", "fr fr-fr fr_fr fr_FR"},
    {"hu_HU", "hu hu-hu hu_hu hu_HU"},
    {"it_IT", "it it-it it_it it_IT"},
    {"ja_JP", "ja ja-jp ja_jp ja_JP"},
    {"ko_KR", "ko ko-kr ko_kr ko_KR"},
    {"nb_NO", "nb nb-no nb_no nb_NO"},
    {"nl_NL", "nl nl-nl nl_nl nl_NL"},
    {"pl_PL", "pl pl-pl pl_pl pl_PL"},
    {"pt_BR", "pt pt-br pt_br pt_BR"},
    {"ro_RO", "ro ro-ro ro_ro ro_RO"},
    {"ru_RU", "ru ru-ru ru_ru ru_RU"},
    {"sv_SE", "sv sv-se sv_se sv_SE"},
    {"tr_TR", "tr tr-tr tr_tr tr_TR"},
    {"uk_UA", "uk uk-ua uk_ua uk_UA"},
    {"zh_CN", "zh zh-cn zh_cn zh_CN zh-Hans"},
    {"zh_TW", "zh-tw zh_tw zh_TW zh-Hant zh-hk zh_HK"},
};

// Returns the suite's code for a tag, or "none" when the suite has no such language.
std::string CodeOf(const std::string& tag) {
  std::string code = "none";
  const bool found = Convert1766ToVelmoraLanguage(tag, code);
  EXPECT_EQ(found, code != "none") << tag;
  return code;
}

TEST(LanguageTableTest, ContainsExactlyExpectedKeys) {
  std::map<std::string, std::string> expected;
  for (const Language& language : kLanguages) {
    std::istringstream keys(language.keys);
    for (std::string key; keys >> key;)
      EXPECT_TRUE(expected.emplace(key, language.code).second) << key;
  }
  EXPECT_EQ(expected.size(), 107U);
  EXPECT_EQ(GetVelmoraLanguageConversionTable(), expected);
}

TEST(LanguageTableTest, Has27Languages) {
  std::set<std::string> codes;
  for (const auto& entry : GetVelmoraLanguageConversionTable())
    codes.insert(entry.second);
  EXPECT_EQ(codes.size(), 27U);
  for (const std::string& code : codes)
    EXPECT_EQ(CodeOf(code), code);
}

// ctest runs each test in its own process, so these are the first calls.
TEST(LanguageTableTest, ConcurrentFirstCallsCreateOneTable) {
  constexpr std::size_t kThreads = 8;
  std::atomic<std::size_t> ready{0};
  std::vector<const std::map<std::string, std::string>*> tables(kThreads);
  std::vector<std::size_t> sizes(kThreads);
  std::vector<std::string> codes(kThreads);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      for (++ready; ready < kThreads;)
        std::this_thread::yield();
      tables[i] = &GetVelmoraLanguageConversionTable();
      sizes[i] = tables[i]->size();
      Convert1766ToVelmoraLanguage("zh-Hant-TW", codes[i]);
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  for (std::size_t i = 0; i < kThreads; ++i) {
    EXPECT_EQ(tables[i], tables[0]);
    EXPECT_EQ(sizes[i], 107U);
    EXPECT_EQ(codes[i], "zh_TW");
  }
}

TEST(LanguageConversionTest, FindsEveryKey) {
  for (const auto& entry : GetVelmoraLanguageConversionTable())
    EXPECT_EQ(CodeOf(entry.first), entry.second) << entry.first;
}

TEST(LanguageConversionTest, ShortensLongTagsToSevenCharacters) {
  EXPECT_EQ(CodeOf("zh-Hans"), "zh_CN");
  EXPECT_EQ(CodeOf("zh-Hans-CN"), "zh_CN");
  EXPECT_EQ(CodeOf("zh-Hant-HK"), "zh_TW");
  EXPECT_EQ(CodeOf("zh-Hantx"), "zh_TW");
}

// At best, the first five characters are found in lower case.
TEST(LanguageConversionTest, ScriptsAreCaseSensitive) {
  EXPECT_EQ(CodeOf("zh-hant"), "zh_CN");
  EXPECT_EQ(CodeOf("zh-HANT-TW"), "zh_CN");
  EXPECT_EQ(CodeOf("zh_Hant"), "zh_CN");
}

TEST(LanguageConversionTest, ShortensTagsToFiveCharacters) {
  EXPECT_EQ(CodeOf("en_GBx"), "en_GB");
  EXPECT_EQ(CodeOf("zh_HKx"), "zh_TW");
  EXPECT_EQ(CodeOf("fr-CA-x-private"), "fr_CA");
  EXPECT_EQ(CodeOf("en-gb-oed"), "en_GB");
  EXPECT_EQ(CodeOf("es_LA.UTF-8"), "es_LA");
}

TEST(LanguageConversionTest, IgnoresCaseOfFiveCharacters) {
  EXPECT_EQ(CodeOf("en-GB"), "en_GB");
  EXPECT_EQ(CodeOf("EN-gb"), "en_GB");
  EXPECT_EQ(CodeOf("FR_ca"), "fr_CA");
  EXPECT_EQ(CodeOf("EN"), "en_US");
  EXPECT_EQ(CodeOf("ZH-HK"), "zh_TW");
}

// The table has no "zh_hk".
TEST(LanguageConversionTest, HongKongWithUnderscoreIsCaseSensitive) {
  EXPECT_EQ(CodeOf("zh_HK"), "zh_TW");
  EXPECT_EQ(CodeOf("ZH_HK"), "zh_CN");
  EXPECT_EQ(CodeOf("zh_hk"), "zh_CN");
}

TEST(LanguageConversionTest, OtherRegionsFallBackToLanguage) {
  EXPECT_EQ(CodeOf("de-AT"), "de_DE");
  EXPECT_EQ(CodeOf("DE_CH"), "de_DE");
  EXPECT_EQ(CodeOf("pt-PT"), "pt_BR");
  EXPECT_EQ(CodeOf("es-419"), "es_ES");
  EXPECT_EQ(CodeOf("zh-SG"), "zh_CN");
  EXPECT_EQ(CodeOf("de-"), "de_DE");
}

// The first two letters decide, even if they belong to another language.
TEST(LanguageConversionTest, ThreeLetterLanguagesFallBackToTwoLetters) {
  EXPECT_EQ(CodeOf("fil"), "fi_FI");
  EXPECT_EQ(CodeOf("deu"), "de_DE");
}

TEST(LanguageConversionTest, ReturnsFalseForUnknownLanguages) {
  for (const char* tag : {"", "e", "xx", "yy", "ar", "ar-SA", "he", "he-IL", "no-NO", "12345678",
                          "-de", " de", "x-klingon"}) {
    EXPECT_EQ(CodeOf(tag), "none") << tag;
  }
}

TEST(LanguageConversionTest, ReturnsFalseForBytesBeyondAscii) {
  EXPECT_EQ(CodeOf("\xC4\x8D"
                   "e"),
            "none");
  EXPECT_EQ(CodeOf(std::string("\0de", 3)), "none");
  EXPECT_EQ(CodeOf("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"), "none");
  EXPECT_EQ(CodeOf("de\xFF"), "de_DE");
}

TEST(LanguageConversionTest, TagAndCodeMayBeSameString) {
  std::string text = "fr-CA";
  EXPECT_TRUE(Convert1766ToVelmoraLanguage(text, text));
  EXPECT_EQ(text, "fr_CA");
}

}  // namespace
