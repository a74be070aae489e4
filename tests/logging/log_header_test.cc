#include "logging/log_header.h"

#include <gmock/gmock.h>
#include <filesystem>

#include "support/files.h"
#include "tests/support/own_root_test.h"
#include "tests/support/test_home.h"
#include "utils/os_utils.h"
#include "utils/string_utils.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kStars(78, '*');

TEST(LogHeaderTest, LinesAreOrdered) {
  EXPECT_THAT(tarn::HeaderLines({"start",
                                 {{"OS Name: ", "n"},
                                  {"CRN Version: ", "4.3"},
                                  {"Bit: ", "64"},
                                  {"OS Version: ", "v"},
                                  {"OS Locale: ", "l"}},
                                 "end",
                                 false}),
              ElementsAre("start", "CRN Version: 4.3", "Bit: 64", "OS Locale: l", "OS Name: n",
                          "OS Version: v", "end"));
}

TEST(LogHeaderTest, EmptyFirstAndLastLineAreLeftOut) {
  EXPECT_THAT(tarn::HeaderLines({"", {{"Bit: ", ""}}, "", false}), ElementsAre("Bit: "));
  EXPECT_THAT(tarn::HeaderLines({}), IsEmpty());
}

TEST(LogHeaderTest, MergeReplacesGivenFields) {
  tarn::stLogHeader header{"start", {{"a: ", "1"}, {"b: ", "2"}}, "end", false};
  tarn::MergeHeader({"", {{"b: ", "3"}, {"c: ", "4"}}, "", true}, header);
  EXPECT_THAT(tarn::HeaderLines(header), ElementsAre("start", "a: 1", "b: 3", "c: 4", "end"));
  tarn::MergeHeader({"new start", {}, "new end", true}, header);
  EXPECT_THAT(tarn::HeaderLines(header),
              ElementsAre("new start", "a: 1", "b: 3", "c: 4", "new end"));
}

std::vector<std::string> LinesAboutTheSystem() {
  TarnUtils::OSUtils::OSVersion version{};
  TarnUtils::OSUtils::GetCurrentOSVersion(version);
  std::string text;
  TarnUtils::OSUtils::GetOSVersionStringFromOSVersion(version, text);
  return {"Bit: " + std::to_string(8 * sizeof(void*)), "OS Locale: de_DE",
          "OS Name: Mac OS " + text, "OS Version: " + text};
}

using LogHeaderOwnRootTest = OwnRootTest;

TEST_F(LogHeaderOwnRootTest, HasFourSystemLinesWithoutSuite) {
  InOwnRoot([] {
    const ScopedVariable language("LANGUAGE", "de");
    const ScopedVariable locale("LC_ALL", "de_DE.UTF-8");
    const std::vector<std::string> system = LinesAboutTheSystem();
    EXPECT_THAT(tarn::HeaderLines(tarn::DescribeSystem()),
                ElementsAre(kStars, system[0], system[1], system[2], system[3], kStars));
  });
}

TEST_F(LogHeaderOwnRootTest, IncludesVersionOfInstalledSuite) {
  InOwnRoot([] {
    const ScopedVariable language("LANGUAGE", "de");
    const ScopedVariable locale("LC_ALL", "de_DE.UTF-8");
    const std::string contents = "/Applications/Utilities/Velmora Cirrane/CRN/Cirrane.app/Contents";
    std::filesystem::create_directories(contents);
    EXPECT_EQ(tarn::HeaderLines(tarn::DescribeSystem()).size(), 6U);  // has no version yet
    WriteFile(contents + "/Info.plist",
              "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>"
              "<key>CFBundleShortVersionString</key><string>4.3.1</string></dict></plist>");
    const std::vector<std::string> system = LinesAboutTheSystem();
    EXPECT_THAT(tarn::HeaderLines(tarn::DescribeSystem()),
                ElementsAre(kStars, "CRN Version: 4.3.1", system[0], system[1], system[2],
                            system[3], kStars));
  });
}

}  // namespace
