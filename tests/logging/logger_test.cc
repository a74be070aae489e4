#include "logging/logger.h"

#include <gtest/gtest.h>

#include "logging/logging_core.h"
#include "tests/logging/recording_target.h"
#include "tests/support/test_home.h"

namespace {

class LoggerTest : public testing::Test {
 protected:
  LoggerTest() {
    tarn::LoggingCore::getInstance()->registerTarget(&target_);
    logger_.setSessionId("s");
    logger_.setDomain("d");
    logger_.setSubDomain("sd");
    logger_.setComponent("c");
  }
  ~LoggerTest() override { tarn::LoggingCore::getInstance()->unregisterTarget(&target_); }

  const TestHome home_;
  RecordingTarget target_{"id"};
  tarn::Logger logger_{"id"};
};

using Lines = std::vector<std::string>;

TEST_F(LoggerTest, ShortFormsUseTheirLevelAndOwnColumns) {
  logger_.trace("%d", 1);
  logger_.debug("%d", 2);
  logger_.info("%d", 3);
  logger_.warn("W", "%d", 4);
  logger_.error("E", "%d", 5);
  logger_.fatal("F", "%d", 6);
  logger_.log(static_cast<tarn::Log_Level>(35), "x", "y", "%d", 7);
  EXPECT_EQ(target_.lines,
            (Lines{"10|s|d|sd|c|||1|0|lock", "20|s|d|sd|c|||2|0|lock", "30|s|d|sd|c|||3|0|lock",
                   "40|s|d|sd|c|W||4|0|lock", "50|s|d|sd|c|E||5|0|lock", "60|s|d|sd|c|F||6|0|lock",
                   "35|s|d|sd|c|x|y|7|0|lock"}));
}

TEST_F(LoggerTest, NullDetailOfShortFormIsEmpty) {
  logger_.warn(nullptr, "x");
  logger_.error(nullptr, "x");
  logger_.fatal(nullptr, "x");
  logger_.log(tarn::INFO, nullptr, nullptr, "x");
  EXPECT_EQ(target_.lines, (Lines{"40|s|d|sd|c|||x|0|lock", "50|s|d|sd|c|||x|0|lock",
                                  "60|s|d|sd|c|||x|0|lock", "30|s|d|sd|c|||x|0|lock"}));
}

TEST_F(LoggerTest, NullFormatWritesNothing) {
  const char* const none = nullptr;
  logger_.trace(none);
  logger_.debug(none);
  logger_.info(none);
  logger_.warn("E1", none);
  logger_.error("E1", none);
  logger_.fatal("E1", none);
  logger_.log(tarn::FATAL, "", "", none);
  EXPECT_TRUE(target_.lines.empty());
}

TEST_F(LoggerTest, ComponentFormsReplaceComponentOnce) {
  logger_.logTrace("C", "%d", 1);
  logger_.logDebug("C", "%d", 2);
  logger_.logInfo("C", "%d", 3);
  logger_.logWarn("C", "W", "%d", 4);
  logger_.logError("C", "E", "%d", 5);
  logger_.logFatal("C", "F", "%d", 6);
  logger_.info("after");
  EXPECT_EQ(target_.lines,
            (Lines{"10|s|d|sd|C|||1|0|lock", "20|s|d|sd|C|||2|0|lock", "30|s|d|sd|C|||3|0|lock",
                   "40|s|d|sd|C|W||4|0|lock", "50|s|d|sd|C|E||5|0|lock", "60|s|d|sd|C|F||6|0|lock",
                   "30|s|d|sd|c|||after|0|lock"}));
}

TEST_F(LoggerTest, ComponentFormsRequireAllArguments) {
  const char* const none = nullptr;
  logger_.logTrace(nullptr, "x");
  logger_.logDebug(nullptr, "x");
  logger_.logInfo(nullptr, "x");
  logger_.logTrace("C", none);
  logger_.logDebug("C", none);
  logger_.logInfo("C", none);
  logger_.logWarn(nullptr, "", "x");
  logger_.logWarn("C", nullptr, "x");
  logger_.logWarn("C", "", none);
  logger_.logError(nullptr, "", "x");
  logger_.logError("C", nullptr, "x");
  logger_.logError("C", "", none);
  logger_.logFatal(nullptr, "", "x");
  logger_.logFatal("C", nullptr, "x");
  logger_.logFatal("C", "", none);
  EXPECT_TRUE(target_.lines.empty());
}

TEST_F(LoggerTest, NullColumnChangesNothing) {
  EXPECT_FALSE(logger_.setSessionId(nullptr));
  EXPECT_FALSE(logger_.setDomain(nullptr));
  EXPECT_FALSE(logger_.setSubDomain(nullptr));
  EXPECT_FALSE(logger_.setComponent(nullptr));
  EXPECT_TRUE(logger_.setComponent(""));
  logger_.info("x");
  EXPECT_EQ(target_.lines, Lines{"30|s|d|sd||||x|0|lock"});
}

TEST_F(LoggerTest, NullIdentifierIsEmpty) {
  RecordingTarget nameless("");
  tarn::LoggingCore::getInstance()->registerTarget(&nameless);
  tarn::Logger(nullptr).info("x");
  tarn::LoggingCore::getInstance()->unregisterTarget(&nameless);
  EXPECT_EQ(nameless.lines, Lines{"30|||||||x|0|lock"});
  EXPECT_TRUE(target_.lines.empty());
}

// A logger that records the calls of logit().
class Watcher : public tarn::Logger {
 public:
  using tarn::Logger::Logger;
  int calls = 0;
  void logit(tarn::Log_Level, const char*, const char*, const char*, va_list) override { ++calls; }
};

TEST_F(LoggerTest, OnlyShortFormsCallLogit) {
  Watcher logger("id");
  logger.trace("x");
  logger.debug("x");
  logger.info("x");
  logger.warn("", "x");
  logger.error("", "x");
  logger.fatal("", "x");
  logger.log(tarn::INFO, "", "", "x");
  EXPECT_EQ(logger.calls, 7);
  EXPECT_TRUE(target_.lines.empty());
  logger.logTrace("C", "x");
  logger.logDebug("C", "x");
  logger.logInfo("C", "x");
  logger.logWarn("C", "", "x");
  logger.logError("C", "", "x");
  logger.logFatal("C", "", "x");
  EXPECT_EQ(logger.calls, 7);
  EXPECT_EQ(target_.lines.size(), 6U);
}

}  // namespace
