#include "helper/application_context.h"

#include <gmock/gmock.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <filesystem>

#include "helper/log_message.h"
#include "support/files.h"
#include "tests/support/test_home.h"
#include "utils/command_line_parser.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class ApplicationContextTest : public testing::Test {
 protected:
  ~ApplicationContextTest() override { ApplicationContext::destroy(); }

  // Returns the lines of the log without their times.
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines = ReadLines(home_.helper_log());
    for (std::string& line : lines)
      line.erase(0, line.find(" | ") + 3);
    return lines;
  }

  // Returns a line of this process without its time.
  static std::string Line(const std::string& level, const std::string& component,
                          const std::string& detail, const std::string& message,
                          const std::string& module = "HexHelper") {
    return "[" + level + "] | " + std::to_string(getpid()) + " | HXPL | " + module + " | " +
           component + " | " + detail + " | " + module + " | " +
           std::to_string(syscall(SYS_gettid)) + " | " + message;
  }

  static std::string Own(const std::string& level, const std::string& message) {
    return Line(level, "ApplicationContext", "", message);
  }

  const TestHome home_;
  const std::string start_ =
      Own("INFO", "************************* START Velmora CEF Helper *************************");
  const std::string end_ =
      Own("INFO",
          "************************* END Velmora CEF Helper. Version: 4.3.0.256 "
          "*************************");
};

TEST_F(ApplicationContextTest, WritesBanners) {
  EXPECT_EQ(ApplicationContext::instance(), ApplicationContext::instance());
  EXPECT_THAT(Lines(), ElementsAre(start_));
  ApplicationContext::destroy();
  EXPECT_THAT(Lines(), ElementsAre(start_, end_));
}

TEST_F(ApplicationContextTest, InstanceCreatesContextAfterDestroy) {
  ApplicationContext::instance();
  ApplicationContext::destroy();
  ApplicationContext::instance();
  EXPECT_THAT(Lines(), ElementsAre(start_, end_, start_));
}

TEST_F(ApplicationContextTest, DestroyDoesNothingWithoutContext) {
  ApplicationContext::destroy();
  EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(ApplicationContextTest, LogsTraceMessagesIfDefaultMarkerExists) {
  std::filesystem::create_directories(home_.logs());
  WriteFile(home_.logs() + "/TARN.trace", "");
  ApplicationContext::instance();
  ApplicationContext::destroy();
  EXPECT_THAT(Lines(), ElementsAre(start_, Own("TRACE", "Application context initialized"),
                                   Own("TRACE", "Finalizing Application context"), end_));
}

TEST_F(ApplicationContextTest, IgnoresMarkerNamedAfterLog) {
  std::filesystem::create_directories(home_.logs());
  WriteFile(home_.logs() + "/CRN.trace", "");
  ApplicationContext::instance();
  EXPECT_THAT(Lines(), ElementsAre(start_));
}

TEST_F(ApplicationContextTest, LoggerUsesProcessIdAsSession) {
  ApplicationContext::instance()->logger()->warn("detail", "%d MB", 500);
  // Only messages of the log route have the module as the second detail.
  EXPECT_THAT(Lines().back(),
              testing::StrEq("[WARN] | " + std::to_string(getpid()) +
                             " | HXPL | HexHelper | ApplicationContext | detail |  | " +
                             std::to_string(syscall(SYS_gettid)) + " | 500 MB"));
}

TEST_F(ApplicationContextTest, LogsMessagesOfHelper) {
  ApplicationContext::instance();
  EXPECT_EQ(logMessage(40, "Module", "Component", "ignored", "detail", "%s %d", "text", 7), 0);
  EXPECT_EQ(gLogMessageFnPtr(30, gLogModuleName, "Component", "", "", "text"), 0);
  EXPECT_THAT(Lines(), ElementsAre(start_, Line("WARN", "Component", "detail", "text 7", "Module"),
                                   Line("INFO", "Component", "", "text")));
}

TEST_F(ApplicationContextTest, LogsPercentSignsInArgumentsVerbatim) {
  ApplicationContext::instance();
  logMessage(30, "%s", "%n", "%d", "%s%s%s", "%s", "%s%n%d");
  EXPECT_EQ(Lines().back(), Line("INFO", "%n", "%s%s%s", "%s%n%d", "%s"));
}

TEST_F(ApplicationContextTest, KeepsPreviousModuleAndComponentIfNull) {
  ApplicationContext::instance();
  logMessage(30, nullptr, nullptr, nullptr, nullptr, "text");
  EXPECT_THAT(Lines().back(), EndsWith(" | HXPL | HexHelper | ApplicationContext |  |  | " +
                                       std::to_string(syscall(SYS_gettid)) + " | text"));
}

TEST_F(ApplicationContextTest, DropsMessagesBelowInfo) {
  ApplicationContext::instance();
  logMessage(20, "Module", "Component", "", "", "text");
  EXPECT_THAT(Lines(), ElementsAre(start_));
}

TEST_F(ApplicationContextTest, DropsMessagesWithoutContext) {
  EXPECT_EQ(logMessage(60, "Module", "Component", "", "", "before"), 0);
  ApplicationContext::instance();
  ApplicationContext::destroy();
  EXPECT_EQ(logMessage(60, "Module", "Component", "", "", "after"), 0);
  EXPECT_THAT(Lines(), ElementsAre(start_, end_));
}

TEST_F(ApplicationContextTest, LogsMessagesOfUtilityLibrary) {
  std::filesystem::create_directories(home_.logs());
  WriteFile(home_.logs() + "/TARN.trace", "");
  ApplicationContext::instance();
  const std::size_t before = Lines().size();
  const char* arguments[] = {"program", "--key=value"};
  TarnUtils::CommandLineParser parser;
  parser.parseCommandLineArguments(2, const_cast<char**>(arguments));
  ASSERT_GT(Lines().size(), before);
  EXPECT_THAT(Lines()[before],
              testing::HasSubstr(" | TarnUtils | CommandLineParser |  | TarnUtils | "));
}

TEST_F(ApplicationContextTest, DropsMessagesIfLogCannotBeOpened) {
  std::filesystem::create_directories(home_.helper_log());
  EXPECT_NE(ApplicationContext::instance(), nullptr);
  EXPECT_EQ(logMessage(60, "Module", "Component", "", "", "dropped"), 0);
  ApplicationContext::destroy();
}

}  // namespace
