#include "logging/log_target_default.h"

#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <filesystem>
#include <thread>

#include "platform/thread_id.h"
#include "tests/logging/log_file.h"

namespace {

using LogTargetDefaultTest = LogFileTest;
using Messages = std::vector<std::string>;

TEST_F(LogTargetDefaultTest, LineHasColumnsInOrder) {
  ASSERT_TRUE(Open());
  EXPECT_TRUE(Write("the message"));
  Close();
  EXPECT_EQ(Text(), "11/14/23 22:13:20:123 | [INFO] | s | d | sd | c | 1 | 2 | " +
                        std::to_string(platform::GetThreadId()) + " | the message\n");
}

TEST_F(LogTargetDefaultTest, ThreadColumnIsThatOfCallingThread) {
  ASSERT_TRUE(Open());
  unsigned long long other = 0;
  std::thread([this, &other] {
    other = platform::GetThreadId();
    Write("x");
  }).join();
  Close();
  EXPECT_EQ(Text(), "11/14/23 22:13:20:123 | [INFO] | s | d | sd | c | 1 | 2 | " +
                        std::to_string(other) + " | x\n");
}

TEST_F(LogTargetDefaultTest, MessageIsFormattedAndCutAfter4094Characters) {
  ASSERT_TRUE(Open());
  const std::string text(5000, 'x');
  logger_.info("%s", text.c_str());
  logger_.info("%d and %s", 7, "text");
  logger_.info("%.4094s", text.c_str());
  logger_.info("%.4093s", text.c_str());
  Close();
  EXPECT_EQ(Messages(), (::Messages{text.substr(0, 4094), "7 and text", text.substr(0, 4094),
                                    text.substr(0, 4093)}));
}

TEST_F(LogTargetDefaultTest, FormatIsTextWithoutArguments) {
  ASSERT_TRUE(Open());
  Write("100 %d %s%n");
  Write(std::string(5000, 'x').c_str());
  Close();
  EXPECT_EQ(Messages(), (::Messages{"100 %d %s%n", std::string(5000, 'x')}));
}

TEST_F(LogTargetDefaultTest, TimestampCountsMilliseconds) {
  ASSERT_TRUE(Open());
  Write("x", 1);
  Write("x", 999);
  Write("x", 1000);
  Write("x", 1700000000007);
  Close();
  std::vector<std::string> times;
  for (const std::string& line : Lines())
    times.push_back(line.substr(0, line.find(" | ")));
  EXPECT_EQ(times, (std::vector<std::string>{"01/01/70 00:00:00:001", "01/01/70 00:00:00:999",
                                             "01/01/70 00:00:01:000", "11/14/23 22:13:20:007"}));
}

TEST_F(LogTargetDefaultTest, TimestampZeroIsNow) {
  ASSERT_TRUE(Open());
  char before[tarn::LogTargetDefault::kTimeSize];
  char after[tarn::LogTargetDefault::kTimeSize];
  target_->getTimeStr(0, before);
  Write("x", 0);
  target_->getTimeStr(0, after);
  Close();
  const std::string line = Text().substr(0, std::string("11/14/23 22:13:20:123").size());
  // Within one year, the texts sort like the times.
  EXPECT_LE(before, line);
  EXPECT_GE(after, line);
}

TEST_F(LogTargetDefaultTest, DropsLowerLevels) {
  ASSERT_TRUE(Open());
  logger_.debug("debug");
  logger_.info("info");
  target_->setLogLevel(tarn::NONE);
  logger_.fatal("", "fatal");
  logger_.log(tarn::NONE, "", "", "none");
  target_->setLogLevel(tarn::DEBUG);
  logger_.trace("trace");
  logger_.debug("debug");
  Close();
  EXPECT_EQ(Messages(), (::Messages{"info", "none", "debug"}));
}

TEST_F(LogTargetDefaultTest, NewFileIsWritableForAllUsers) {
  const mode_t mask = umask(077);
  ASSERT_TRUE(Open());
  umask(mask);
  EXPECT_EQ(ModeOf(path_), 0666);
  Close();
}

TEST_F(LogTargetDefaultTest, ExistingFileKeepsModeAndLines) {
  WriteFile(path_, "an earlier line\n");
  ASSERT_EQ(chmod(path_.c_str(), 0640), 0);
  ASSERT_TRUE(Open());
  Write("x");
  Close();
  EXPECT_EQ(ModeOf(path_), 0640);
  EXPECT_EQ(Lines().front(), "an earlier line");
  EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(LogTargetDefaultTest, FirstLineBeginsNewLineAfterTornLine) {
  WriteFile(path_, "an earlier line\nthe half of anoth");
  ASSERT_TRUE(Open());
  Write("x");
  Close();
  ASSERT_EQ(Lines().size(), 3U);
  EXPECT_EQ(Lines()[1], "the half of anoth");
  EXPECT_EQ(Messages()[2], "x");
}

TEST_F(LogTargetDefaultTest, RegistrationDoesNotChangeFile) {
  WriteFile(path_, "the half of a line");
  ASSERT_TRUE(Open());
  Close();
  EXPECT_EQ(Text(), "the half of a line");
}

TEST_F(LogTargetDefaultTest, UnregistrationDoesNotWaitForLock) {
  ASSERT_TRUE(Open());
  tarn::BinaryLock lock;
  ASSERT_TRUE(lock.create(path_, LockObjects::kProject));
  ASSERT_TRUE(lock.wait());
  EXPECT_TRUE(core_->unregisterTarget(target_.get()));
  EXPECT_TRUE(lock.release());
}

TEST_F(LogTargetDefaultTest, WritesToDefaultFileInLogFolderWithoutFileName) {
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  Write("x");
  Close();
  EXPECT_EQ(ReadLines(home_.logs() + "/TARN.log").size(), 1U);
}

TEST_F(LogTargetDefaultTest, InvalidTargetIsNotRegistered) {
  EXPECT_FALSE(target_->setLogFile("a/b.log", folder_.path().c_str()));
  EXPECT_FALSE(core_->registerTarget(target_.get()));
  EXPECT_EQ(target_->getRefCount(), 0);
}

TEST_F(LogTargetDefaultTest, WritesOnlyWhileRegistered) {
  ASSERT_TRUE(target_->setLogFile("test.log", folder_.path().c_str()));
  EXPECT_TRUE(Write("before"));
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  EXPECT_TRUE(Write("between"));
  Close();
  EXPECT_TRUE(Write("after"));
  EXPECT_EQ(Messages(), ::Messages{"between"});
}

TEST_F(LogTargetDefaultTest, RegisteredTargetContinuesInNewFile) {
  ASSERT_TRUE(Open());
  Write("old");
  ASSERT_TRUE(target_->setLogFile("new.log", folder_.path().c_str()));
  Write("new");
  Close();
  EXPECT_EQ(Messages(), ::Messages{"old"});
  EXPECT_EQ(ReadLines(folder_.path() + "/new.log").size(), 1U);
}

TEST_F(LogTargetDefaultTest, CanBeRegisteredAgain) {
  ASSERT_TRUE(Open());
  Write("first");
  Close();
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  Write("second");
  Close();
  EXPECT_EQ(Messages(), (::Messages{"first", "second"}));
}

TEST_F(LogTargetDefaultTest, UnregistrationRemovesLockObjects) {
  ASSERT_TRUE(Open());
  const LockObjects objects(path_, LockObjects::Keep{});
  EXPECT_EQ(objects.users(), 1);
  EXPECT_EQ(objects.free(), 1);
  EXPECT_NE(objects.memory_segment(), -1);
  Close();
  EXPECT_TRUE(objects.gone());
}

TEST_F(LogTargetDefaultTest, DestructorEndsRegistration) {
  {
    tarn::LogTargetDefault target("other");
    ASSERT_TRUE(target.setLogFile("test.log", folder_.path().c_str()));
    ASSERT_TRUE(target.onRegisterTarget());
  }
  EXPECT_TRUE(LockObjects(path_, LockObjects::Keep{}).gone());
}

TEST_F(LogTargetDefaultTest, CallerWithLockWritesWithoutTakingIt) {
  ASSERT_TRUE(Open());
  tarn::BinaryLock lock;
  ASSERT_TRUE(lock.create(path_, 11));
  ASSERT_TRUE(lock.wait());
  EXPECT_TRUE(target_->writeLog(tarn::INFO, "", "", "", "", "", "", "x", nullptr, 0, false));
  ASSERT_TRUE(lock.release());
  lock.finalize();
  Close();
  EXPECT_EQ(Messages(), ::Messages{"x"});
}

TEST_F(LogTargetDefaultTest, LineOfAnyLengthIsWhole) {
  ASSERT_TRUE(Open());
  ::Messages expected;
  for (const std::size_t length : {0U, 1U, 4094U, 8000U, 8189U, 8190U, 8191U, 8192U, 100000U, 5U}) {
    expected.emplace_back(length, 'x');
    Write(expected.back().c_str());
  }
  Close();
  EXPECT_EQ(Messages(), expected);
}

TEST_F(LogTargetDefaultTest, CleanFileEmptiesFile) {
  ASSERT_TRUE(Open());
  Write("x");
  EXPECT_TRUE(target_->cleanFile());
  EXPECT_EQ(Text(), "");
  Close();
  std::filesystem::remove(path_);
  std::filesystem::create_directory(path_);
  EXPECT_FALSE(target_->cleanFile());
}

TEST_F(LogTargetDefaultTest, NullLineMakesStreamBad) {
  ASSERT_TRUE(Open());
  target_->WriteStream("first");
  target_->WriteStream(nullptr);
  target_->WriteStream("second");
  Close();
  EXPECT_EQ(Text(), "first\n");
}

TEST_F(LogTargetDefaultTest, LevelsHaveTheirNames) {
  EXPECT_EQ(target_->getLogLevelString(tarn::WARN), "WARN");
  EXPECT_EQ(target_->getLogLevelString(static_cast<tarn::Log_Level>(1)), "ALL");
}

TEST_F(LogTargetDefaultTest, ThreadsTakeTurns) {
  ASSERT_TRUE(Open());
  constexpr int kThreads = 8;
  constexpr int kLines = 500;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([i] {
      tarn::Logger logger("id");
      for (int n = 0; n < kLines; ++n)
        logger.info("%d:%d", i, n);
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  Close();
  std::vector<int> next(kThreads, 0);
  for (const std::string& message : Messages()) {
    const auto colon = message.find(':');
    ASSERT_NE(colon, std::string::npos) << message;
    EXPECT_EQ(message.substr(colon + 1),
              std::to_string(next.at(std::stoul(message.substr(0, colon)))++));
  }
  EXPECT_EQ(next, std::vector<int>(kThreads, kLines));
}

}  // namespace
