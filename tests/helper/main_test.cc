// Runs the helper's own main() in separate processes with a fake CEF (fake_child.cc).

#include <gmock/gmock.h>
#include <filesystem>
#include <string>
#include <vector>

#include "support/files.h"
#include "tests/support/banners.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_home.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr char kBroken[] = "<config><CEF>";

class MainTest : public testing::Test {
 protected:
  // Runs the helper until it exits. Returns its exit status.
  int Run(const std::string& argument, int result = 0) {
    ChildProcess helper({FAKE_CEF_HELPER, argument},
                        {{{"FAKE_CEF_RESULT", std::to_string(result)},
                          {"FAKE_APPLICATION_SUPPORT", folder_.path()}},
                         ""});
    switches_.clear();
    for (std::string line; helper.ReadLine(line);)
      switches_.push_back(line);
    return helper.Wait();
  }

  void Configure(const std::string& content) const {
    const std::string configs = folder_.path() + "/Velmora/TARN/Configs";
    std::filesystem::create_directories(configs);
    WriteFile(configs + "/ServiceConfig.xml", content);
  }
  void LogDebugMessages() const {
    std::filesystem::create_directories(home_.logs());
    WriteFile(home_.logs() + "/TARN.debug", "");
  }
  std::vector<std::string> Lines() const { return ReadLines(home_.helper_log()); }

  const TestHome home_;
  const TemporaryFolder folder_;
  std::vector<std::string> switches_;  // of the last run
};

// The XML parser's line about a broken configuration.
auto IsParserError() {
  return AllOf(HasSubstr(" | [DEBUG] | "), HasSubstr(" | TarnUtils | XMLParser | "),
               HasSubstr(" | Error in initWithXMLString, error description - "));
}

TEST_F(MainTest, ExitsWithZeroForEveryResultOfCef) {
  for (const char* const argument : {"", "--type=renderer", "--type=utility", "--type=zygote",
                                     "--type=gpu-process", "--type=gpu-process2"}) {
    for (const int result : {-1, 0, 1, 3, 139, 255}) {
      EXPECT_EQ(Run(argument, result), 0) << argument << " " << result;
      EXPECT_THAT(switches_, ElementsAre("disable-pinch")) << argument << " " << result;
    }
  }
}

TEST_F(MainTest, WritesBannersForEveryResultOfCef) {
  for (const int result : {-1, 0, 255}) {
    Run("--type=renderer", result);
    EXPECT_THAT(Lines(), ElementsAre(EndsWith(kStartBanner), EndsWith(kEndBanner)));
    std::filesystem::remove(home_.helper_log());
  }
}

TEST_F(MainTest, LogsBrokenConfigurationAtDebugLevelBetweenBanners) {
  LogDebugMessages();
  Configure(kBroken);
  for (const char* const argument : {"", "--type=renderer", "--type=utility"}) {
    EXPECT_EQ(Run(argument), 0);
    EXPECT_THAT(switches_, ElementsAre("disable-pinch"));
    const std::vector<std::string> lines = Lines();
    EXPECT_THAT(lines, Contains(IsParserError()).Times(1)) << argument;
    EXPECT_THAT(lines.front(), EndsWith(kStartBanner));
    EXPECT_THAT(lines.back(), EndsWith(kEndBanner));
    std::filesystem::remove(home_.helper_log());
  }
}

TEST_F(MainTest, KeepsBrokenConfigurationOutOfLogAtDefaultLevel) {
  Configure(kBroken);
  EXPECT_EQ(Run("--type=renderer"), 0);
  EXPECT_THAT(Lines(), ElementsAre(EndsWith(kStartBanner), EndsWith(kEndBanner)));
}

TEST_F(MainTest, LogsNothingAboutMissingConfiguration) {
  LogDebugMessages();
  EXPECT_EQ(Run("--type=renderer"), 0);
  EXPECT_THAT(Lines(), Not(Contains(HasSubstr("XMLParser"))));
}

TEST_F(MainTest, LogsNothingInGpuProcess) {
  LogDebugMessages();
  Configure(kBroken);
  EXPECT_EQ(Run("--type=gpu-process"), 0);
  EXPECT_THAT(switches_, ElementsAre("disable-pinch"));
  EXPECT_FALSE(std::filesystem::exists(home_.suite_logs()));
}

}  // namespace
