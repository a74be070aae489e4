#include "utils/log_route.h"

#include <gtest/gtest.h>

#include "tests/support/captured_log.h"
#include "tests/support/recording_logger.h"

namespace {

void SendMessage() {
  TARN_UTILS_LOG(nullptr, tarn::WARN, "Component", "%d apples and %s", 3, "pears");
}

int g_calls = 0;

int CountCall(int /*level*/, const char* /*module*/, const char* /*component*/,
              const char* /*ignored*/, const char* /*detail*/, const char* /*format*/, ...) {
  ++g_calls;
  return 0;
}

TEST(LogRouteTest, DropsMessageWithoutFunctionAndLogger) {
  RecordingLogger former;
  TarnUtils::SetLogger(nullptr, static_cast<tarn::AbstractLogger*>(&former));
  EXPECT_TRUE(TarnUtils::SetLogger(nullptr, nullptr));
  SendMessage();
  EXPECT_TRUE(former.lines.empty());
}

TEST(LogRouteTest, FunctionReceivesFormatWithArguments) {
  const CapturedLog log;
  SendMessage();
  ASSERT_EQ(log.messages().size(), 1U);
  EXPECT_EQ(log.messages()[0],
            (CapturedMessage{40, "TarnUtils", "Component", "", "", "3 apples and pears"}));
}

TEST(LogRouteTest, LoggerObjectReceivesComponentAsSecondDetail) {
  RecordingLogger logger;
  TarnUtils::SetLogger(nullptr, static_cast<tarn::AbstractLogger*>(&logger));
  SendMessage();
  TarnUtils::SetLogger(nullptr, nullptr);
  EXPECT_EQ(logger.lines, std::vector<std::string>{"40 [] [Component] 3 apples and pears"});
}

TEST(LogRouteTest, PrefersFunctionToLoggerObject) {
  RecordingLogger logger;
  g_calls = 0;
  TarnUtils::SetLogger(reinterpret_cast<void*>(CountCall),
                       static_cast<tarn::AbstractLogger*>(&logger));
  SendMessage();
  TarnUtils::SetLogger(nullptr, nullptr);
  EXPECT_EQ(g_calls, 1);
  EXPECT_TRUE(logger.lines.empty());
}

TEST(LogRouteTest, PrefersOwnLoggerOfComponent) {
  RecordingLogger own;
  const CapturedLog log;
  TARN_UTILS_LOG(&own, tarn::ERROR, "Component", "text");
  EXPECT_EQ(own.lines, std::vector<std::string>{"50 [] [Component] text"});
  EXPECT_TRUE(log.messages().empty());
}

TEST(LogRouteTest, SetLoggerReplacesBothSlots) {
  RecordingLogger first;
  RecordingLogger second;
  TarnUtils::SetLogger(nullptr, static_cast<tarn::AbstractLogger*>(&first));
  EXPECT_TRUE(TarnUtils::SetLogger(nullptr, static_cast<tarn::AbstractLogger*>(&second)));
  SendMessage();
  TarnUtils::SetLogger(nullptr, nullptr);
  EXPECT_TRUE(first.lines.empty());
  EXPECT_EQ(second.lines.size(), 1U);
}

}  // namespace
