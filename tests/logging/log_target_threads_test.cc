// Tests a log target with exceptions, cancellation, forks, and calls of other threads.

#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <functional>
#include <new>
#include <stdexcept>
#include <thread>

#include "tests/logging/log_file.h"
#include "tests/support/process_pool.h"

namespace {

// Calls a function during each line.
class InterruptedTarget : public tarn::LogTargetDefault {
 public:
  using LogTargetDefault::LogTargetDefault;
  void WriteStream(const char* line) override {
    if (interrupt) interrupt();
    LogTargetDefault::WriteStream(line);
  }
  std::function<void()> interrupt;
};

class LogTargetThreads : public LogFileTest {
 protected:
  LogTargetThreads() {
    auto target = std::make_unique<InterruptedTarget>("id");
    interrupted_ = target.get();
    target_ = std::move(target);
  }

  void WriteFromThread(const char* text) {
    std::thread([this, text] { Write(text, 0); }).join();
  }

  static std::string End(pid_t pid) {
    int status = 0;
    return waitpid(pid, &status, 0) == pid ? DescribeStatus(status) : "there is no such process";
  }

  InterruptedTarget* interrupted_;
};

TEST_F(LogTargetThreads, ExceptionOfOverrideReleasesLock) {
  ASSERT_TRUE(Open());
  const LockObjects objects(path_, LockObjects::Keep{});
  interrupted_->interrupt = [] { throw std::runtime_error("of the override"); };
  EXPECT_THROW(Write("dropped"), std::runtime_error);
  EXPECT_THROW(target_->logHeader(tarn::INFO, "", "", "", "", nullptr, true), std::runtime_error);
  EXPECT_EQ(objects.free(), 1);
  interrupted_->interrupt = nullptr;
  WriteFromThread("written");
  Close();
  EXPECT_EQ(Messages(), std::vector<std::string>{"written"});
}

TEST_F(LogTargetThreads, MessageIsDroppedWithoutMemory) {
  ASSERT_TRUE(Open());
  const LockObjects objects(path_, LockObjects::Keep{});
  interrupted_->interrupt = [] { throw std::bad_alloc(); };
  EXPECT_TRUE(Write("dropped"));
  EXPECT_TRUE(target_->logHeader(tarn::INFO, "", "", "", "", nullptr, true));
  EXPECT_EQ(objects.free(), 1);
  interrupted_->interrupt = nullptr;
  WriteFromThread("written");
  Close();
  EXPECT_EQ(Messages(), std::vector<std::string>{"written"});
}

TEST_F(LogTargetThreads, CanceledThreadReleasesLock) {
  ASSERT_TRUE(Open());
  const LockObjects objects(path_, LockObjects::Keep{});
  interrupted_->interrupt = [] {
    pthread_cancel(pthread_self());
    pthread_testcancel();
  };
  WriteFromThread("dropped");
  EXPECT_EQ(objects.free(), 1);
  interrupted_->interrupt = nullptr;
  WriteFromThread("written");
  Close();
  EXPECT_EQ(Messages(), std::vector<std::string>{"written"});
}

TEST_F(LogTargetThreads, OverrideLogsToAnotherTarget) {
  tarn::LogTargetDefault other("other");
  ASSERT_TRUE(other.setLogFile("other.log", folder_.path().c_str()));
  ASSERT_TRUE(core_->registerTarget(&other));
  ASSERT_TRUE(Open());
  interrupted_->interrupt = [&other] {
    other.writeLog(tarn::INFO, "", "", "", "", "", "",
                   "a longer line than that of the first target", nullptr, 0, true);
  };
  Write("first");
  Write("second");
  Close();
  core_->unregisterTarget(&other);
  EXPECT_EQ(Messages(), (std::vector<std::string>{"first", "second"}));
  EXPECT_EQ(ReadLines(folder_.path() + "/other.log").size(), 2U);
  LockObjects(folder_.path() + "/other.log", LockObjects::Keep{}).Remove();
}

TEST_F(LogTargetThreads, ChildOfForkLogsWhileThreadsDo) {
  constexpr int kChildren = 100;
  ASSERT_TRUE(Open());
  std::atomic<bool> done{false};
  std::thread writer([&] {
    while (!done)
      Write("of the parent", 0);
  });
  for (int i = 0; i < kChildren && !HasFailure(); ++i) {
    const pid_t child = fork();
    if (child == 0) {
      alarm(ProcessPool::kTimeoutSeconds);
      Write("of the child", 0);
      _exit(0);
    }
    EXPECT_EQ(End(child), "");
  }
  done = true;
  writer.join();
  Close();
  const std::vector<std::string> messages = Messages();
  EXPECT_EQ(std::count(messages.begin(), messages.end(), "of the child"), kChildren);
}

TEST_F(LogTargetThreads, OverrideForks) {
  ASSERT_TRUE(Open());
  pid_t child = -1;
  interrupted_->interrupt = [&child] { child = fork(); };
  Write("of both", 0);
  interrupted_->interrupt = nullptr;
  if (child == 0) {
    alarm(ProcessPool::kTimeoutSeconds);
    Write("of the child", 0);
    _exit(0);
  }
  EXPECT_EQ(End(child), "");
  EXPECT_EQ(LockObjects(path_, LockObjects::Keep{}).free(), 1);
  Write("of the parent", 0);
  Close();
  EXPECT_EQ(Messages(),
            (std::vector<std::string>{"of both", "of both", "of the child", "of the parent"}));
}

// The next two tests are for the thread sanitizer.
TEST_F(LogTargetThreads, IsRegisteredAgainWhileOthersWrite) {
  constexpr int kLines = 2000;
  ASSERT_TRUE(Open());
  std::atomic<bool> done{false};
  std::thread writer([&] {
    for (int i = 0; i < kLines; ++i)
      Write("x", 0);
    done = true;
  });
  while (!done)
    EXPECT_TRUE(core_->registerTarget(target_.get()));
  writer.join();
  Close();
  EXPECT_EQ(Lines().size(), static_cast<std::size_t>(kLines));
}

TEST_F(LogTargetThreads, ChangesFileWhileOthersWrite) {
  constexpr int kLines = 2000;
  ASSERT_TRUE(Open());
  std::atomic<bool> done{false};
  std::thread writer([&] {
    for (int i = 0; i < kLines; ++i)
      Write("x", 0);
    done = true;
  });
  while (!done) {
    EXPECT_TRUE(target_->setLogFile("other.log", folder_.path().c_str()));
    EXPECT_TRUE(target_->setLogFile("test.log", folder_.path().c_str()));
  }
  writer.join();
  Close();
  const std::size_t others = ReadLines(folder_.path() + "/other.log").size();
  EXPECT_EQ(Lines().size() + others, static_cast<std::size_t>(kLines));
}

}  // namespace
