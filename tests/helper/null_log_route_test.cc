// Tests the helper without its log route, which the logging thread can set to null at any time.

#include <gmock/gmock.h>
#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "helper/application_context.h"
#include "helper/log_message.h"
#include "helper/notification_listener.h"
#include "helper/zygote.h"
#include "support/files.h"
#include "tests/support/banners.h"
#include "tests/support/test_home.h"
#include "utils/command_line_parser.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

std::vector<std::string> g_routed;

// Stores one message and removes itself as the log route.
__attribute__((format(printf, 6, 7))) int TakeOne(int level, const char* /*module*/,
                                                  const char* component, const char* /*ignored*/,
                                                  const char* /*detail*/, const char* format, ...) {
  char text[256];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  g_routed.push_back(std::to_string(level) + " " + component + ": " + text);
  gLogMessageFnPtr = nullptr;
  return 0;
}

// The log accepts messages of every level.
class NullLogRouteTest : public testing::Test {
 protected:
  NullLogRouteTest() {
    g_routed.clear();
    std::filesystem::create_directories(home_.logs());
    WriteFile(home_.logs() + "/TARN.trace", "");
  }
  ~NullLogRouteTest() override {
    ApplicationContext::destroy();
    gLogMessageFnPtr = logMessage;
  }

  std::vector<std::string> Lines() const { return ReadLines(home_.helper_log()); }

  const TestHome home_;
};

TEST_F(NullLogRouteTest, ContextLogsNothing) {
  gLogMessageFnPtr = nullptr;
  ApplicationContext::instance();
  ApplicationContext::checkMemoryUsage();
  ApplicationContext::destroy();
  EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(NullLogRouteTest, UtilityLibraryLogsNothing) {
  gLogMessageFnPtr = nullptr;
  ApplicationContext::instance();
  const char* arguments[] = {"program", "--key=value"};
  TarnUtils::CommandLineParser parser;
  parser.parseCommandLineArguments(2, const_cast<char**>(arguments));
  EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(NullLogRouteTest, DropsSecondMessageOfSetUpIfFirstRemovesRoute) {
  gLogMessageFnPtr = TakeOne;
  ApplicationContext::instance();
  EXPECT_THAT(g_routed, ElementsAre(std::string("30 ApplicationContext: ") + kStartBanner));
}

TEST_F(NullLogRouteTest, DropsSecondMessageOfTearDownIfFirstRemovesRoute) {
  ApplicationContext::instance();
  gLogMessageFnPtr = TakeOne;
  ApplicationContext::destroy();
  EXPECT_THAT(g_routed, ElementsAre("10 ApplicationContext: Finalizing Application context"));
}

TEST_F(NullLogRouteTest, ZygoteLogsNothing) {
  for (const bool sandboxed : {false, true}) {
    gLogMessageFnPtr = nullptr;
    ApplicationContext::instance();
    CloseLogBeforeForks(sandboxed);
    EXPECT_EQ(gLogger, nullptr);
  }
  EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(NullLogRouteTest, DropsMessagesOfTearDownIfMessageOfZygoteRemovesRoute) {
  ApplicationContext::instance();
  gLogMessageFnPtr = TakeOne;
  CloseLogBeforeForks(false);
  EXPECT_THAT(g_routed, ElementsAre(testing::StartsWith("30 Zygote: ")));
}

// There is no session bus. The listener reports this in a task for the main thread.
TEST_F(NullLogRouteTest, DropsProblemOfListener) {
  ApplicationContext::instance();
  gLogMessageFnPtr = nullptr;
  std::promise<std::function<void()>> posted;
  {
    NotificationListener listener([&](std::function<void()> task) {
      posted.set_value(std::move(task));
      return true;
    });
    listener.mainThreadIsReady();
    listener.observe();
    posted.get_future().get()();
  }
  EXPECT_THAT(Lines(),
              ElementsAre(EndsWith(kStartBanner), EndsWith("Application context initialized")));
}

}  // namespace
