#include "tests/logging/binary_lock.h"

#include <sched.h>
#include <sys/sem.h>
#include <unistd.h>
#include <atomic>
#include <csignal>
#include <filesystem>

#include "support/files.h"
#include "tests/support/process_pool.h"
#include "tests/support/shared_page.h"

namespace {

TEST_F(BinaryLockTest, CreatorCountsItselfAndLeavesLockFree) {
  tarn::BinaryLock lock;
  EXPECT_TRUE(Attach(lock));
  EXPECT_EQ(objects_.users(), 1);
  EXPECT_EQ(objects_.free(), 1);
  EXPECT_TRUE(Attach(lock));
  EXPECT_EQ(objects_.users(), 1);
}

TEST_F(BinaryLockTest, SecondObjectSharesSetAndDoesNotResetIt) {
  tarn::BinaryLock first;
  tarn::BinaryLock second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(first.wait());
  ASSERT_TRUE(Attach(second));
  EXPECT_EQ(objects_.users(), 2);
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(first.release());
  EXPECT_EQ(objects_.free(), 1);
  EXPECT_TRUE(second.wait());
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(second.release());
}

TEST_F(BinaryLockTest, LastUserRemovesSet) {
  tarn::BinaryLock first;
  tarn::BinaryLock second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(Attach(second));
  EXPECT_TRUE(first.finalize());
  EXPECT_EQ(objects_.users(), 1);
  EXPECT_TRUE(second.finalize());
  EXPECT_TRUE(objects_.gone());
  EXPECT_TRUE(second.finalize());
}

TEST_F(BinaryLockTest, LastUserRemovesSetWhileHoldingLock) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  ASSERT_TRUE(lock.wait());
  EXPECT_TRUE(lock.finalize());
  EXPECT_TRUE(objects_.gone());
}

TEST_F(BinaryLockTest, DestructorDetaches) {
  { EXPECT_TRUE(Attach(*std::make_unique<tarn::BinaryLock>())); }
  EXPECT_TRUE(objects_.gone());
}

TEST_F(BinaryLockTest, CanBeCreatedAgain) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  ASSERT_TRUE(lock.finalize());
  EXPECT_FALSE(lock.wait());
  ASSERT_TRUE(Attach(lock));
  EXPECT_TRUE(lock.wait());
  EXPECT_TRUE(lock.release());
}

TEST_F(BinaryLockTest, FailsWithoutFile) {
  tarn::BinaryLock lock;
  EXPECT_FALSE(lock.create(folder_.path() + "/missing", LockObjects::kProject));
  EXPECT_FALSE(lock.wait());
  EXPECT_FALSE(lock.release());
  EXPECT_TRUE(lock.finalize());
}

TEST_F(BinaryLockTest, IsReleasedWhenHolderIsKilled) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  ProcessPool pool;
  pool.Start([this] {
    tarn::BinaryLock own;
    if (Attach(own) && own.wait()) raise(SIGKILL);
    return false;
  });
  EXPECT_EQ(pool.WaitForAll(), "a process was ended by signal 9");
  EXPECT_EQ(objects_.users(), 2);
  EXPECT_TRUE(lock.wait());
  EXPECT_TRUE(lock.release());
}

TEST_F(BinaryLockTest, VanishedSetIsRecreated) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  objects_.Remove();
  EXPECT_TRUE(lock.wait());
  EXPECT_EQ(objects_.users(), 1);
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(lock.release());
  EXPECT_TRUE(lock.finalize());
  EXPECT_TRUE(objects_.gone());
}

TEST_F(BinaryLockTest, SetThatVanishesWhileHeldIsRecreated) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  ASSERT_TRUE(lock.wait());
  objects_.Remove();
  EXPECT_FALSE(lock.release());
  EXPECT_TRUE(lock.wait());
  EXPECT_TRUE(lock.release());
}

TEST_F(BinaryLockTest, IsRetriedOnceItCanBeCreated) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  objects_.Remove();
  const std::string aside = path_ + ".aside";
  std::filesystem::rename(path_, aside);
  EXPECT_FALSE(lock.wait());
  EXPECT_FALSE(lock.wait());
  std::filesystem::rename(aside, path_);
  EXPECT_TRUE(lock.wait());
  EXPECT_TRUE(lock.release());
}

TEST_F(BinaryLockTest, SetOfKilledCreatorIsReplaced) {
  const key_t key = ftok(path_.c_str(), LockObjects::kProject);
  ASSERT_NE(semget(key, 2, IPC_CREAT | IPC_EXCL | 0666), -1);
  tarn::BinaryLock lock;
  EXPECT_TRUE(Attach(lock));
  EXPECT_TRUE(lock.wait());
  EXPECT_TRUE(lock.release());
  EXPECT_EQ(objects_.users(), 1);
}

// The set allows changes but no reading, and its creator never frees the lock.
TEST_F(BinaryLockTest, RefusesSetItCannotRead) {
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
  const key_t key = ftok(path_.c_str(), LockObjects::kProject);
  ASSERT_NE(semget(key, 2, IPC_CREAT | IPC_EXCL | 0222), -1);
  ProcessPool pool;
  pool.Start([this] {
    if (geteuid() == 0 && setuid(65534) != 0) return false;
    tarn::BinaryLock lock;
    return !Attach(lock) && !lock.wait() && lock.finalize();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
}

TEST_F(BinaryLockTest, LateReleaseDoesNotFreeReplacementSet) {
  tarn::BinaryLock first;
  tarn::BinaryLock second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(first.wait());
  objects_.Remove();
  ASSERT_TRUE(Attach(second));
  ASSERT_TRUE(second.wait());
  EXPECT_FALSE(first.release());
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(second.release());
  EXPECT_EQ(objects_.free(), 1);
}

TEST_F(BinaryLockTest, UnremovableSetOfAnotherUserStaysUsable) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can take on another identity";
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
  tarn::BinaryLock creator;
  ASSERT_TRUE(Attach(creator));
  ProcessPool pool;
  SharedPage<std::atomic<int>> step;
  pool.Start([&] {
    tarn::BinaryLock other;
    if (setuid(65534) != 0 || !Attach(other)) return false;
    *step = 1;
    while (*step != 2)
      sched_yield();
    const bool detached = other.finalize();
    *step = 3;
    while (*step != 4)
      sched_yield();
    return !detached;
  });
  while (*step != 1)
    sched_yield();
  EXPECT_TRUE(creator.finalize());
  *step = 2;
  while (*step != 3)
    sched_yield();
  // The process still lives, so the kernel does not release the lock.
  EXPECT_EQ(objects_.free(), 1);
  EXPECT_TRUE(Attach(creator));
  EXPECT_TRUE(creator.wait());
  EXPECT_TRUE(creator.release());
  *step = 4;
  EXPECT_EQ(pool.WaitForAll(), "");
}

void Ignore(int /*signal*/) {}

TEST_F(BinaryLockTest, SignalDoesNotInterruptWait) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  ASSERT_TRUE(lock.wait());
  ProcessPool pool;
  const pid_t waiter = pool.Start([this] {
    struct sigaction action {};
    action.sa_handler = Ignore;
    tarn::BinaryLock own;
    return sigaction(SIGUSR1, &action, nullptr) == 0 && Attach(own) && own.wait() && own.release();
  });
  // The signal comes when the thread sleeps in the kernel and waits for the lock.
  while (objects_.waiting() == 0) {
  }
  EXPECT_EQ(kill(waiter, SIGUSR1), 0);
  EXPECT_TRUE(lock.release());
  EXPECT_EQ(pool.WaitForAll(), "");
}

TEST_F(BinaryLockTest, WaitersLeaveRemovedSet) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  ASSERT_TRUE(lock.wait());
  ProcessPool pool;
  pool.Start([this] {
    tarn::BinaryLock own;
    return Attach(own) && own.wait() && own.release() && own.finalize();
  });
  while (objects_.waiting() == 0) {
  }
  objects_.Remove();
  EXPECT_EQ(pool.WaitForAll(), "");
  EXPECT_TRUE(objects_.gone());
}

}  // namespace
