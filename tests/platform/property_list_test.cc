#include "platform/property_list.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <string>

#include "support/files.h"
#include "tests/platform/property_list_checks.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(XmlPropertyListTest, FindsTextOfKey) {
  ExpectText(XmlDictionary("<string>4.3.0</string>"), "4.3.0");
  ExpectText(XmlDictionary("<string></string>"), "");
  ExpectText(XmlDictionary("<string/>"), "");
  ExpectText(XmlDictionary("<string> a\n b </string>"), " a\n b ");
}

TEST(XmlPropertyListTest, ResolvesEscapes) {
  ExpectText(XmlDictionary("<string>&lt;&amp;&gt;&quot;&apos;</string>"), "<&>\"'");
  ExpectText(XmlDictionary("<string>&#228;&#x1D11E;</string>"), "\xC3\xA4\xF0\x9D\x84\x9E");
  ExpectText(XmlDictionary("<!-- no --><string>a</string><!-- no -->"), "a");
}

TEST(XmlPropertyListTest, AcceptsByteOrderMarkAndUtf16) {
  const std::string list = XmlDictionary("<string>4\xC3\xA4</string>");
  ExpectText("\xEF\xBB\xBF" + list, "4\xC3\xA4");
  std::string wide = "\xFE\xFF";
  for (const char byte : XmlDictionary("<string>4.3</string>")) {
    wide += '\0';
    wide += byte;
  }
  ExpectText(wide, "4.3");
}

TEST(XmlPropertyListTest, ReturnsFalseForOtherTypes) {
  for (const char* const value :
       {"<integer>4</integer>", "<real>4.3</real>", "<true/>", "<data>NC4z</data>",
        "<date>2026-11-15T00:00:00Z</date>", "<array><string>4.3</string></array>",
        "<dict><key>CFBundleShortVersionString</key><string>4.3</string></dict>"}) {
    ExpectNone(XmlDictionary(value));
  }
  ExpectNone(XmlDictionary("<string>\xFF</string>"));
}

TEST(XmlPropertyListTest, ReturnsFalseForMissingKey) {
  const std::string list = XmlDictionary("<string>4.3.0</string>");
  for (const char* const key : {"", "CFBundleShortVersion", "CFBundleShortVersionStringX",
                                "cfbundleshortversionstring", "4.3.0"}) {
    ExpectNone(list, key);
  }
}

TEST(XmlPropertyListTest, SearchesOnlyTopDictionary) {
  const std::string entry = "<key>" + kKey + "</key><string>4.3</string>";
  ExpectNone(Xml("<dict><key>a</key><dict>" + entry + "</dict></dict>"));
  ExpectNone(Xml("<array><dict>" + entry + "</dict></array>"));
  ExpectNone(Xml("<string>" + kKey + "</string>"));
  ExpectNone(Xml("<dict></dict>"));
  ExpectNone(Xml("<dict/>"));
  ExpectNone(Xml(""));
}

TEST(XmlPropertyListTest, RejectsEveryTruncatedList) {
  const std::string list = XmlDictionary("<string>4.3.0</string>");
  const std::size_t complete = list.find("</dict>");
  for (std::size_t size = 0; size < complete; ++size)
    ExpectNone(list.substr(0, size));
}

TEST(XmlPropertyListTest, SurvivesDeepNesting) {
  const std::string begin = "<plist><dict><key>" + kKey + "</key><string>4</string><key>a</key>";
  const std::size_t levels = (platform::kMaxPropertyListSize - 200) / 15;
  ExpectTextOrNone(
      begin + Repeat("<array>", levels) + Repeat("</array>", levels) + "</dict></plist>", "4");
  ExpectNone("<plist>" + Repeat("<array>", platform::kMaxPropertyListSize / 7 - 1));
  ExpectNone("<plist>" + Repeat("<dict><key/>", platform::kMaxPropertyListSize / 12 - 1));
}

TEST(XmlPropertyListTest, DoesNotExpandEntities) {
  std::string document = R"(<?xml version="1.0"?><!DOCTYPE plist [<!ENTITY a0 "xxxxxxxxxx">)";
  for (int i = 1; i < 30; ++i) {
    const std::string one = "&a" + std::to_string(i - 1) + ";";
    document += "<!ENTITY a" + std::to_string(i) + " \"" + one + one + "\">";
  }
  document += "]><plist><dict><key>" + kKey + "</key><string>&a29;</string></dict></plist>";
  ExpectNone(document);

  const std::string file =
      "<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY f SYSTEM "
      "\"file:///etc/passwd\">]><plist><dict><key>" +
      kKey + "</key><string>&f;</string></dict></plist>";
  ExpectNone(file);
}

class ReadPropertyListTest : public testing::Test {
 protected:
  void ExpectFailure(const std::string& path) {
    std::string value = "before";
    EXPECT_FALSE(platform::ReadPropertyListText(path, kKey, value));
    EXPECT_EQ(value, "before");
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/Info.plist";
};

TEST_F(ReadPropertyListTest, ReadsBothForms) {
  // { "CFBundleShortVersionString": "4.3" }, in 8 + 3 + 29 + 4 bytes of objects
  const std::string binary = std::string("bplist00\xD1\x01\x02\x5F\x10\x1A", 14) + kKey +
                             std::string(
                                 "\x53"
                                 "4.3"
                                 "\x08\x0B\x28\0\0\0\0\0\0\x01\x01"
                                 "\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0"
                                 "\0\0\0\0\0\0\0\x2C",
                                 4 + 3 + 32);
  for (const std::string& list : {XmlDictionary("<string>4.3</string>"), binary}) {
    WriteFile(path_, list);
    std::string value;
    EXPECT_TRUE(platform::ReadPropertyListText(path_, kKey, value));
    EXPECT_EQ(value, "4.3");
  }
}

TEST_F(ReadPropertyListTest, ReturnsFalseForUnreadableFile) {
  ExpectFailure("");
  ExpectFailure(path_);
  ExpectFailure(folder_.path());
  WriteFile(path_, "");
  ExpectFailure(path_);
  WriteFile(path_, "no property list");
  ExpectFailure(path_);
}

TEST_F(ReadPropertyListTest, DoesNotBlockOnPipe) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  ExpectFailure(path_);
}

TEST_F(ReadPropertyListTest, ReadsLargestFile) {
  const std::string list = XmlDictionary("<string>4.3</string>");
  const std::string largest = list + std::string(platform::kMaxPropertyListSize - list.size(), ' ');
  WriteFile(path_, largest);
  std::string value;
  EXPECT_TRUE(platform::ReadPropertyListText(path_, kKey, value));
  EXPECT_EQ(value, "4.3");
  WriteFile(path_, largest + " ");
  ExpectFailure(path_);
  ExpectNone(largest + " ");
}

}  // namespace
