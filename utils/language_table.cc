#include "utils/language_table.h"

#include "utils/ascii_case.h"

namespace TarnUtils {
namespace {

bool Find(const std::string& key, std::string& code) {
  const std::map<std::string, std::string>& table = GetVelmoraLanguageConversionTable();
  const auto found = table.find(key);
  if (found == table.end()) return false;
  code = found->second;
  return true;
}

}  // namespace

const std::map<std::string, std::string>& GetVelmoraLanguageConversionTable() {
  // In the order of the suite's list, which contains "zh_HK" twice; the first entry counts.
  static const std::map<std::string, std::string> table = {
      {"cs", "cs_CZ"},      {"cs-cz", "cs_CZ"}, {"cs_CZ", "cs_CZ"}, {"cs_cz", "cs_CZ"},
      {"da", "da_DK"},      {"da-dk", "da_DK"}, {"da_DK", "da_DK"}, {"da_dk", "da_DK"},
      {"de", "de_DE"},      {"de-de", "de_DE"}, {"de_DE", "de_DE"}, {"de_de", "de_DE"},
      {"el", "el_GR"},      {"el-gr", "el_GR"}, {"el_GR", "el_GR"}, {"el_gr", "el_GR"},
      {"en", "en_US"},      {"en-us", "en_US"}, {"en_US", "en_US"}, {"en_us", "en_US"},
      {"en-gb", "en_GB"},   {"en_GB", "en_GB"}, {"en_gb", "en_GB"}, {"es", "es_ES"},
      {"es-es", "es_ES"},   {"es_ES", "es_ES"}, {"es_es", "es_ES"}, {"es-la", "es_LA"},
      {"es_LA", "es_LA"},   {"es_la", "es_LA"}, {"es-na", "es_NA"}, {"es_NA", "es_NA"},
      {"es_na", "es_NA"},   {"fi", "fi_FI"},    {"fi-fi", "fi_FI"}, {"fi_FI", "fi_FI"},
      {"fi_fi", "fi_FI"},   {"fr", "fr_FR"},    {"fr-fr", "fr_FR"}, {"fr_FR", "fr_FR"},
      {"fr_fr", "fr_FR"},   {"fr-ca", "fr_CA"}, {"fr_CA", "fr_CA"}, {"fr_ca", "fr_CA"},
      {"hu", "hu_HU"},      {"hu-hu", "hu_HU"}, {"hu_HU", "hu_HU"}, {"hu_hu", "hu_HU"},
      {"it", "it_IT"},      {"it-it", "it_IT"}, {"it_IT", "it_IT"}, {"it_it", "it_IT"},
      {"ja", "ja_JP"},      {"ja-jp", "ja_JP"}, {"ja_JP", "ja_JP"}, {"ja_jp", "ja_JP"},
      {"ko", "ko_KR"},      {"ko-kr", "ko_KR"}, {"ko_KR", "ko_KR"}, {"ko_kr", "ko_KR"},
      {"nb", "nb_NO"},      {"nb-no", "nb_NO"}, {"nb_NO", "nb_NO"}, {"nb_no", "nb_NO"},
      {"nl", "nl_NL"},      {"nl-nl", "nl_NL"}, {"nl_NL", "nl_NL"}, {"nl_nl", "nl_NL"},
      {"pl", "pl_PL"},      {"pl-pl", "pl_PL"}, {"pl_PL", "pl_PL"}, {"pl_pl", "pl_PL"},
      {"pt", "pt_BR"},      {"pt-br", "pt_BR"}, {"pt_BR", "pt_BR"}, {"pt_br", "pt_BR"},
      {"ro", "ro_RO"},      {"ro-ro", "ro_RO"}, {"ro_RO", "ro_RO"}, {"ro_ro", "ro_RO"},
      {"ru", "ru_RU"},      {"ru-ru", "ru_RU"}, {"ru_RU", "ru_RU"}, {"ru_ru", "ru_RU"},
      {"sv", "sv_SE"},      {"sv-se", "sv_SE"}, {"sv_SE", "sv_SE"}, {"sv_se", "sv_SE"},
      {"tr", "tr_TR"},      {"tr-tr", "tr_TR"}, {"tr_TR", "tr_TR"}, {"tr_tr", "tr_TR"},
      {"uk", "uk_UA"},      {"uk-ua", "uk_UA"}, {"uk_UA", "uk_UA"}, {"uk_ua", "uk_UA"},
      {"zh", "zh_CN"},      {"zh-cn", "zh_CN"}, {"zh_CN", "zh_CN"}, {"zh_cn", "zh_CN"},
      {"zh-Hans", "zh_CN"}, {"zh-hk", "zh_TW"}, {"zh_HK", "zh_TW"}, {"zh_HK", "zh_TW"},
      {"zh-Hant", "zh_TW"}, {"zh-tw", "zh_TW"}, {"zh_TW", "zh_TW"}, {"zh_tw", "zh_TW"},
  };
  return table;
}

bool Convert1766ToVelmoraLanguage(const std::string& tag, std::string& code) {
  std::string key = tag;
  if (Find(key, code)) return true;
  // A language with a script: "zh-Hans" from "zh-Hans-CN".
  if (key.size() >= 8) {
    key.resize(7);
    if (Find(key, code)) return true;
  }
  // A language with a region.
  if (key.size() >= 6) {
    key.resize(5);
    if (Find(key, code)) return true;
  }
  key = ToLowerAscii(key);
  if (Find(key, code)) return true;
  if (key.size() < 3) return false;
  key.resize(2);
  return Find(key, code);
}

}  // namespace TarnUtils
