// Tests which target writes the header of a rotated log file, and when.

#include "tests/logging/log_segments.h"
#include "tests/support/process_pool.h"

namespace {

using testing::ElementsAre;

class DueHeaderTest : public LogTargetSegmentsTest {
 protected:
  // Registers another target for the same file.
  bool OpenOther(tarn::LogTargetDefault& target) const {
    return target.setLogFile("test.log", folder_.path().c_str()) && target.onRegisterTarget();
  }

  static void WriteWarning(tarn::LogTargetDefault& target) {
    target.writeLog(tarn::WARN, "", "", "", "", "", "", "warning", nullptr, 0, true);
  }
};

TEST_F(DueHeaderTest, HeaderPrecedesNextLineOnce) {
  Fill(kLimit);
  ASSERT_TRUE(Open());
  Write("first");
  Write("second");
  Close();
  const ::testing::Matcher<std::string> star =
      "****************************************"
      "**************************************";
  EXPECT_THAT(Messages(),
              ElementsAre(star, testing::StartsWith("Bit: "), testing::StartsWith("OS Locale: "),
                          testing::StartsWith("OS Name: Mac OS "),
                          testing::StartsWith("OS Version: "), star, "first", "second"));
  const std::string line = Lines()[1];
  EXPECT_EQ(line.substr(line.find(" | ")).substr(0, 35), " | [INFO] | s | d | sd | c |  |  | ");
}

TEST_F(DueHeaderTest, TargetForWarningsWritesNoHeader) {
  for (const tarn::Log_Level level : {tarn::WARN, tarn::ERROR}) {
    target_->setLogLevel(level);
    Fill(kLimit);
    ASSERT_TRUE(Open());
    logger_.fatal("", "first");
    Close();
    EXPECT_THAT(Messages(), ElementsAre("first"));
  }
}

TEST_F(DueHeaderTest, NextWriterWritesHeader) {
  tarn::LogTargetDefault other("other");
  ASSERT_TRUE(OpenOther(other));
  Fill(kLimit);
  ASSERT_TRUE(Open());
  other.writeLog(tarn::INFO, "", "", "", "", "", "", "of the other", nullptr, 0, true);
  Write("of the one");
  Close();
  other.onUnregisterTarget();
  ASSERT_EQ(Messages().size(), 8U);
  EXPECT_EQ(Messages()[6], "of the other");
  EXPECT_EQ(Messages()[7], "of the one");
}

TEST_F(DueHeaderTest, LogHeaderWritesHeader) {
  ASSERT_TRUE(Open());
  tarn::stLogHeader alone{"begin", {{"a: ", "%d %s"}}, "", false};
  EXPECT_TRUE(target_->logHeader(tarn::ERROR, "s", "d", "sd", "c", &alone, true));
  EXPECT_THAT(Messages(), ElementsAre("begin", "a: %d %s"));
  EXPECT_THAT(Lines()[0], testing::HasSubstr(" | [ERROR] | s | d | sd | c |  |  | "));
  EXPECT_TRUE(target_->logHeader(tarn::DEBUG, "s", "d", "sd", "c", &alone, true));
  EXPECT_EQ(Lines().size(), 2U);  // below the target's level
  ASSERT_TRUE(target_->cleanFile());
  ASSERT_TRUE(target_->onRegisterTarget());
  tarn::stLogHeader merged{"", {{"Bit: ", "many"}}, "end", true};
  EXPECT_TRUE(target_->logHeader(tarn::INFO, "", "", "", "", &merged, true));
  EXPECT_TRUE(target_->logHeader(tarn::INFO, "", "", "", "", nullptr, true));
  Close();
  ASSERT_EQ(Messages().size(), 12U);
  for (const std::size_t block : {0U, 6U}) {
    EXPECT_EQ(Messages()[block], std::string(78, '*'));
    EXPECT_EQ(Messages()[block + 1], "Bit: many");
    EXPECT_EQ(Messages()[block + 5], "end");
  }
}

TEST_F(DueHeaderTest, HeaderPrecedesNextLineOfLockHolder) {
  UseLimits(1, 900);
  ASSERT_TRUE(Open());
  WriteFile(path_, "content\n");
  EXPECT_TRUE(target_->SegmentLogFile(true));
  target_->writeLog(tarn::INFO, "", "", "", "", "", "", "x", nullptr, 0, false);
  EXPECT_EQ(Messages().size(), 7U);
  EXPECT_EQ(Messages().back(), "x");
  Write("y");
  Close();
  EXPECT_EQ(Messages().size(), 8U);
}

TEST_F(DueHeaderTest, LogHeaderClearsDueHeader) {
  for (const bool use_lock : {false, true}) {
    UseLimits(1, 900);
    ASSERT_TRUE(Open());
    WriteFile(path_, "content\n");
    EXPECT_TRUE(target_->SegmentLogFile(true));
    target_->logHeader(tarn::INFO, "", "", "", "", nullptr, use_lock);
    Write("x");
    Close();
    EXPECT_EQ(Messages().size(), 7U) << use_lock;
    std::filesystem::remove(path_);
  }
}

TEST_F(DueHeaderTest, LogHeaderBelowLevelClearsDueHeader) {
  for (const bool use_lock : {false, true}) {
    Fill(kLimit);
    ASSERT_TRUE(Open());
    target_->logHeader(tarn::DEBUG, "", "", "", "", nullptr, use_lock);
    Write("x");
    Close();
    EXPECT_THAT(Messages(), ElementsAre("x")) << use_lock;
  }
}

TEST_F(DueHeaderTest, HeaderStaysDueAcrossRegistrations) {
  Fill(kLimit);
  ASSERT_TRUE(Open());
  Close();
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  Write("x");
  Close();
  EXPECT_EQ(Messages().size(), 7U);
  EXPECT_TRUE(LockObjects(path_, LockObjects::Keep{}).gone());
}

TEST_F(DueHeaderTest, HeaderStaysDueWhenAnotherTargetFailsToWriteIt) {
  tarn::LogTargetDefault broken("broken");
  ASSERT_TRUE(OpenOther(broken));
  broken.WriteStream(nullptr);
  Fill(kLimit);
  ASSERT_TRUE(Open());
  WriteWarning(broken);
  Write("x");
  Close();
  broken.onUnregisterTarget();
  ASSERT_EQ(Messages().size(), 7U);
  EXPECT_EQ(Messages().back(), "x");
}

TEST_F(DueHeaderTest, HeaderDroppedByLevelIsNotWrittenByAnotherTarget) {
  tarn::LogTargetDefault warnings("warnings");
  warnings.setLogLevel(tarn::WARN);
  ASSERT_TRUE(OpenOther(warnings));
  Fill(kLimit);
  ASSERT_TRUE(Open());
  WriteWarning(warnings);
  Write("x");
  Close();
  warnings.onUnregisterTarget();
  EXPECT_THAT(Messages(), ElementsAre("warning", "x"));
}

TEST_F(DueHeaderTest, HeaderDroppedByLevelIsNotWrittenByAnotherProcess) {
  Fill(kLimit);
  ASSERT_TRUE(Open());
  ProcessPool pool;
  pool.Start([this] {
    tarn::LogTargetDefault warnings("warnings");
    warnings.setLogLevel(tarn::WARN);
    if (!OpenOther(warnings)) return false;
    WriteWarning(warnings);
    return warnings.onUnregisterTarget();
  });
  ASSERT_EQ(pool.WaitForAll(), "");
  Write("x");
  Close();
  EXPECT_THAT(Messages(), ElementsAre("warning", "x"));
  EXPECT_TRUE(LockObjects(path_, LockObjects::Keep{}).gone());
}

TEST_F(DueHeaderTest, HeaderDroppedByLevelIsNotWrittenAfterLevelChange) {
  target_->setLogLevel(tarn::WARN);
  Fill(kLimit);
  ASSERT_TRUE(Open());
  WriteWarning(*target_);
  target_->setLogLevel(tarn::INFO);
  Write("x");
  Close();
  EXPECT_THAT(Messages(), ElementsAre("warning", "x"));
}

TEST_F(DueHeaderTest, HeaderStaysDueUntilFirstLineAboveLevel) {
  target_->setLogLevel(tarn::WARN);
  Fill(kLimit);
  ASSERT_TRUE(Open());
  Write("dropped");
  target_->setLogLevel(tarn::INFO);
  Write("x");
  Close();
  ASSERT_EQ(Messages().size(), 7U);
  EXPECT_EQ(Messages().back(), "x");
}

// Counts the calls of the library.
class CountingTarget : public tarn::LogTargetDefault {
 public:
  using tarn::LogTargetDefault::LogTargetDefault;
  bool writeLog(tarn::Log_Level /*level*/, const char* /*sessionId*/, const char* /*domain*/,
                const char* /*subDomain*/, const char* /*component*/, const char* /*detail1*/,
                const char* /*detail2*/, const char* /*format*/, va_list /*args*/,
                unsigned long long /*timestampMs*/, bool /*useLock*/) override
      TARN_PRINTF_METHOD(9, 0) {
    ++messages;
    return true;
  }
  void WriteStream(const char* line) override {
    ++lines;
    LogTargetDefault::WriteStream(line);
  }
  int messages = 0;
  int lines = 0;
};

TEST_F(DueHeaderTest, HeaderIsWrittenAsBlockOfLines) {
  auto owned = std::make_unique<CountingTarget>("id");
  CountingTarget& target = *owned;
  target_ = std::move(owned);
  ASSERT_TRUE(Open());
  target.logHeader(tarn::INFO, "", "", "", "", nullptr, true);
  Close();
  EXPECT_EQ(target.lines, 6);
  EXPECT_EQ(target.messages, 0);
  EXPECT_EQ(Lines().size(), 6U);
}

// Calls the virtual function with the columns of the message.
class HeadedTarget : public LimitedTarget {
 public:
  using LimitedTarget::LimitedTarget;
  bool logHeader(tarn::Log_Level level, const char* sessionId, const char* domain,
                 const char* subDomain, const char* component, tarn::stLogHeader* header,
                 bool useLock) override {
    call = std::to_string(level) + sessionId + domain + subDomain + component +
           (header || useLock ? " wrong" : "");
    return LimitedTarget::logHeader(level, sessionId, domain, subDomain, component, header,
                                    useLock);
  }
  std::string call;
};

TEST_F(DueHeaderTest, DueHeaderIsWrittenByVirtualFunction) {
  auto owned = std::make_unique<HeadedTarget>("id", tarn::LogRotation::Limits{1, 900});
  HeadedTarget& target = *owned;
  target_ = std::move(owned);
  WriteFile(path_, "content\n");
  ASSERT_TRUE(Open());
  Write("x");
  Close();
  EXPECT_EQ(target.call, "30sdsdc");
  EXPECT_EQ(Messages().size(), 7U);
}

}  // namespace
