#include "logging/logging_core.h"

#include <gtest/gtest.h>
#include <unistd.h>
#include <type_traits>

#include "tests/logging/recording_target.h"
#include "tests/support/test_home.h"

namespace {

class LoggingCoreTest : public testing::Test {
 protected:
// Passes no arguments, so the format is the text itself.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  void Log(const char* identifier, const char* text) {
    core_->log(identifier, tarn::INFO, "s", "d", "sd", "c", "1", "2", text, nullptr, 5);
  }
#pragma GCC diagnostic pop

  const TestHome home_;
  tarn::LoggingCore* const core_ = tarn::LoggingCore::getInstance();
};

__attribute__((format(printf, 2, 3))) void LogFormatted(tarn::LoggingCore* core, const char* format,
                                                        ...) {
  va_list args;
  va_start(args, format);
  core->log("id", tarn::WARN, "", "", "", "", "", "", format, args, 0);
  va_end(args);
}

static_assert(!std::is_copy_constructible_v<tarn::LoggingCore>);
static_assert(!std::is_copy_assignable_v<tarn::LoggingCore>);

TEST_F(LoggingCoreTest, IsSingleton) { EXPECT_EQ(core_, tarn::LoggingCore::getInstance()); }

TEST_F(LoggingCoreTest, RegistrationNotifiesAndCountsTarget) {
  RecordingTarget target("id");
  EXPECT_TRUE(core_->registerTarget(&target));
  EXPECT_EQ(target.registrations, 1);
  EXPECT_EQ(target.getRefCount(), 1);
  EXPECT_TRUE(core_->unregisterTarget(&target));
  EXPECT_EQ(target.unregistrations, 1);
  EXPECT_EQ(target.getRefCount(), 0);
}

TEST_F(LoggingCoreTest, SecondRegistrationOnlyNotifiesTargetAgain) {
  RecordingTarget target("id");
  EXPECT_TRUE(core_->registerTarget(&target));
  EXPECT_TRUE(core_->registerTarget(&target));
  EXPECT_EQ(target.registrations, 2);
  EXPECT_EQ(target.getRefCount(), 1);
  Log("id", "text");
  EXPECT_EQ(target.lines.size(), 1U);
  EXPECT_TRUE(core_->unregisterTarget(&target));
  EXPECT_EQ(target.unregistrations, 1);
  Log("id", "text");
  EXPECT_EQ(target.lines.size(), 1U);
}

TEST_F(LoggingCoreTest, DoesNotRegisterNullOrRefusingTarget) {
  RecordingTarget target("id");
  target.accepts = false;
  EXPECT_FALSE(core_->registerTarget(nullptr));
  EXPECT_FALSE(core_->registerTarget(&target));
  EXPECT_EQ(target.getRefCount(), 0);
  Log("id", "text");
  EXPECT_TRUE(target.lines.empty());
}

TEST_F(LoggingCoreTest, UnregistrationUnderUnknownIdentifierSucceeds) {
  RecordingTarget target("nobody registered under this");
  EXPECT_TRUE(core_->unregisterTarget(&target));
  EXPECT_EQ(target.unregistrations, 0);
  EXPECT_FALSE(core_->unregisterTarget(nullptr));
}

TEST_F(LoggingCoreTest, UnregistrationOfUnknownTargetUnderKnownIdentifierFails) {
  RecordingTarget target("id");
  RecordingTarget stranger("id");
  core_->registerTarget(&target);
  EXPECT_FALSE(core_->unregisterTarget(&stranger));
  EXPECT_EQ(stranger.getRefCount(), 0);
  EXPECT_TRUE(core_->unregisterTarget(&target));
}

TEST_F(LoggingCoreTest, LastUnregistrationReturnsResultOfTarget) {
  RecordingTarget target("id");
  target.last_answer = false;
  core_->registerTarget(&target);
  EXPECT_FALSE(core_->unregisterTarget(&target));
}

TEST_F(LoggingCoreTest, UnregistrationWithReferencesLeftDoesNotNotifyTarget) {
  RecordingTarget target("id");
  target.last_answer = false;
  core_->registerTarget(&target);
  target.incrementRefCount();
  EXPECT_TRUE(core_->unregisterTarget(&target));
  EXPECT_EQ(target.unregistrations, 0);
  EXPECT_EQ(target.getRefCount(), 1);
}

TEST_F(LoggingCoreTest, MessageGoesToEveryTargetOfItsIdentifier) {
  RecordingTarget first("id");
  RecordingTarget second("id");
  RecordingTarget other("other");
  for (RecordingTarget* const target : {&first, &second, &other})
    core_->registerTarget(target);
  LogFormatted(core_, "%d and %s", 7, "text");
  EXPECT_EQ(first.lines, std::vector<std::string>{"40|||||||7 and text|0|lock"});
  EXPECT_EQ(second.lines, first.lines);
  EXPECT_TRUE(other.lines.empty());
  core_->unregisterTarget(&first);
  Log("id", "%d");
  EXPECT_EQ(first.lines.size(), 1U);
  EXPECT_EQ(second.lines[1], "30|s|d|sd|c|1|2|%d|5|lock");
  core_->unregisterTarget(&second);
  core_->unregisterTarget(&other);
}

TEST_F(LoggingCoreTest, DropsMessageWithoutTarget) {
  Log(nullptr, "text");
  Log("nobody registered under this", "text");
}

TEST_F(LoggingCoreTest, NullFormatIsDropped) {
  RecordingTarget target("id");
  core_->registerTarget(&target);
  Log("id", nullptr);
  core_->unregisterTarget(&target);
  EXPECT_TRUE(target.lines.empty());
}

TEST_F(LoggingCoreTest, SessionIdIsProcessId) {
  EXPECT_EQ(tarn::LoggingCore::generateSessionId(), std::to_string(getpid()));
}

}  // namespace
