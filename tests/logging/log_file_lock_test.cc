#include "logging/log_file_lock.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <atomic>
#include <functional>
#include <stdexcept>
#include <thread>

#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

namespace {

using Scope = tarn::LogFileLock::Scope;
using ThreadScope = tarn::LogFileLock::ThreadScope;

class LogFileLock : public testing::Test {
 protected:
  LogFileLock() { lock_.Create(path_); }

  static bool CanTake(tarn::LogFileLock& lock) { return Scope(lock).held(); }

  // Forks while other threads run, which ProcessPool does not allow. A signal ends a child that
  // hangs.
  static pid_t Fork(const std::function<bool()>& body) {
    const pid_t pid = fork();
    if (pid != 0) return pid;
    alarm(ProcessPool::kTimeoutSeconds);
    _exit(body() ? 0 : 1);
  }

  static std::string End(pid_t pid) {
    int status = 0;
    return waitpid(pid, &status, 0) == pid ? DescribeStatus(status) : "there is no such process";
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/file";
  const LockObjects objects_{path_};
  tarn::LogFileLock lock_;
};

TEST_F(LogFileLock, IsHeldUntilScopeEnds) {
  {
    const Scope scope(lock_);
    EXPECT_TRUE(scope.held());
    EXPECT_EQ(objects_.free(), 0);
  }
  EXPECT_EQ(objects_.free(), 1);
}

TEST_F(LogFileLock, IsReleasedByException) {
  try {
    const Scope scope(lock_);
    throw std::runtime_error("in the midst of a line");
  } catch (const std::runtime_error&) {
    EXPECT_EQ(objects_.free(), 1);
  }
  std::thread([this] { EXPECT_TRUE(CanTake(lock_)); }).join();
}

TEST_F(LogFileLock, IsNotRecursive) {
  const Scope scope(lock_);
  EXPECT_FALSE(CanTake(lock_));
  EXPECT_EQ(objects_.free(), 0);
}

TEST_F(LogFileLock, IsNotHeldBeforeCreateAndAfterDiscard) {
  tarn::LogFileLock other;
  EXPECT_FALSE(CanTake(other));
  other.Create(path_);
  EXPECT_TRUE(CanTake(other));
  other.Discard();
  EXPECT_FALSE(CanTake(other));
}

TEST_F(LogFileLock, KeepsItsFirstFile) {
  lock_.Create(folder_.path() + "/missing");
  EXPECT_TRUE(CanTake(lock_));
}

TEST_F(LogFileLock, MovesToAnotherFile) {
  const std::string other = folder_.path() + "/other";
  const LockObjects others(other);
  {
    Scope scope(lock_);
    scope.MoveTo(other);
    EXPECT_TRUE(scope.held());
    EXPECT_TRUE(objects_.gone());
    EXPECT_EQ(others.free(), 0);
  }
  EXPECT_EQ(others.free(), 1);
}

TEST_F(LogFileLock, IsNotHeldAfterMoveToMissingFile) {
  Scope scope(lock_);
  scope.MoveTo(folder_.path() + "/missing");
  EXPECT_FALSE(scope.held());
  EXPECT_TRUE(objects_.gone());
}

TEST_F(LogFileLock, CallerHoldsWithoutTaking) {
  const Scope scope(lock_, tarn::LogFileLock::HeldByCaller{});
  EXPECT_TRUE(scope.held());
  EXPECT_EQ(objects_.free(), 1);
}

TEST_F(LogFileLock, ThreadScopesNest) {
  const Scope scope(lock_);
  const ThreadScope outer(lock_);
  EXPECT_FALSE(outer.took());
}

TEST_F(LogFileLock, ChildOfForkLocksWhileThreadsOfParentDo) {
  std::atomic<bool> done{false};
  std::thread writer([&] {
    while (!done)
      CanTake(lock_);
  });
  for (int i = 0; i < 200 && !HasFailure(); ++i)
    EXPECT_EQ(End(Fork([this] { return CanTake(lock_); })), "");
  done = true;
  writer.join();
}

// Forks while a thread that holds one lock takes the other lock.
class NestedLocks : public LogFileLock {
 protected:
  NestedLocks() { second_.Create(second_path_); }

  void ForkNextTo(tarn::LogFileLock& outer, tarn::LogFileLock& inner) {
    std::atomic<bool> done{false};
    std::thread writer([&] {
      while (!done) {
        const Scope scope(outer);
        CanTake(inner);
      }
    });
    for (int i = 0; i < 100 && !HasFailure(); ++i)
      EXPECT_EQ(End(Fork([this] { return CanTake(lock_) && CanTake(second_); })), "");
    done = true;
    writer.join();
  }

  const std::string second_path_ = folder_.path() + "/second";
  const LockObjects second_objects_{second_path_};
  tarn::LogFileLock second_;
};

TEST_F(NestedLocks, ForkDoesNotDeadlockInOrderOfCreation) { ForkNextTo(lock_, second_); }
TEST_F(NestedLocks, ForkDoesNotDeadlockInOtherOrder) { ForkNextTo(second_, lock_); }

TEST_F(LogFileLock, HolderKeepsLockAcrossFork) {
  {
    const Scope scope(lock_);
    const pid_t child = Fork([] { return true; });
    EXPECT_EQ(End(child), "");
    EXPECT_EQ(objects_.free(), 0);
  }
  EXPECT_EQ(objects_.free(), 1);
}

TEST_F(LogFileLock, ChildOfHolderDoesNotReleaseLockOfParent) {
  pid_t child = -1;
  {
    const Scope scope(lock_);
    child = fork();
    if (child != 0) {
      EXPECT_EQ(End(child), "");
      EXPECT_EQ(objects_.free(), 0);
    }
  }
  if (child == 0) _exit(objects_.free() == 0 ? 0 : 1);
  EXPECT_EQ(objects_.free(), 1);
}

TEST_F(LogFileLock, ChildOfHolderLocksOnceParentHasReleased) {
  int released[2];
  ASSERT_EQ(pipe(released), 0);
  pid_t child = -1;
  {
    const Scope scope(lock_);
    child = fork();
  }
  if (child == 0) {
    char byte = 0;
    alarm(ProcessPool::kTimeoutSeconds);
    const bool good = read(released[0], &byte, 1) == 1 && CanTake(lock_) && objects_.free() == 1;
    _exit(good ? 0 : 1);
  }
  ASSERT_EQ(write(released[1], "", 1), 1);
  EXPECT_EQ(End(child), "");
}

}  // namespace
