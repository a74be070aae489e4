// Tests logs that have no lock at first or lose their file.

#include <sched.h>
#include <functional>
#include <memory>
#include <thread>

#include "logging/log_file_lock.h"
#include "support/namespaces.h"
#include "tests/logging/log_segments.h"
#include "tests/support/process_pool.h"

namespace {

using testing::ElementsAre;
using Scope = tarn::LogFileLock::Scope;

class RecoveredLock : public LogTargetSegmentsTest {};

TEST_F(RecoveredLock, IsRetriedInNextSecond) {
  tarn::LogFileLock lock;
  lock.Create(path_);
  WriteFile(path_, "");
  EXPECT_FALSE(Scope(lock).held());
  ++g_segments_now;
  EXPECT_TRUE(Scope(lock).held());
  lock.Discard();
  ++g_segments_now;
  EXPECT_FALSE(Scope(lock).held());
}

TEST_F(RecoveredLock, IsRetriedAfterFailedMove) {
  WriteFile(path_, "");
  tarn::LogFileLock lock;
  lock.Create(path_);
  const std::string other = At("other");
  {
    Scope scope(lock);
    ASSERT_TRUE(scope.can_move());
    scope.MoveTo(other);
    EXPECT_FALSE(scope.held());
  }
  WriteFile(other, "");
  const LockObjects objects(other, LockObjects::Keep{});
  EXPECT_FALSE(Scope(lock).held());
  ++g_segments_now;
  {
    const Scope scope(lock);
    EXPECT_TRUE(scope.held());
    EXPECT_EQ(objects.free(), 0);
  }
  lock.Discard();
}

TEST_F(RecoveredLock, LinesAreWrittenOnceItCanBeCreated) {
  if (!CanUnshare(CLONE_NEWIPC)) GTEST_SKIP() << "this system does not allow namespaces";
  ProcessPool pool;
  pool.Start([this] {
    if (!Unshare(CLONE_NEWIPC)) return false;
    WriteFile("/proc/sys/kernel/sem", "32000 32000 500 0");
    const bool opened = Open();
    Write("dropped");
    WriteFile("/proc/sys/kernel/sem", "32000 32000 500 10");
    Write("dropped in the second of the first attempt");
    ++g_segments_now;
    Write("written");
    Close();
    return opened && !HasFailure();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
  EXPECT_THAT(Messages(), ElementsAre("written"));
}

TEST_F(RecoveredLock, BadFileIsOpenedAgainWithNextCheck) {
  const unsigned long long later = 4000000000000;
  ASSERT_TRUE(Open());
  target_->WriteStream(nullptr);
  Write("dropped", later);
  Write("written", later);
  Close();
  EXPECT_THAT(Messages(), ElementsAre("written"));
}

// Renames the log, as the rotation of a large log in another process does, while a target waits for
// the lock of the old file in order to register.
class RenamedLog : public LogTargetSegmentsTest {
 protected:
  void RegisterWhile(const std::function<void()>& replace) {
    WriteFile(path_, "");
    const LockObjects objects(path_, LockObjects::Keep{});
    auto other = std::make_unique<tarn::LogFileLock>();
    other->Create(path_);
    auto scope = std::make_unique<Scope>(*other);
    std::thread thread([this] { EXPECT_TRUE(Open()); });
    while (objects.waiting() == 0)
      sched_yield();
    replace();
    scope.reset();
    thread.join();
    other.reset();
  }
};

TEST_F(RenamedLog, IsLeftByTargetThatRegisters) {
  RegisterWhile([this] {
    std::filesystem::rename(path_, At("renamed"));
    WriteFile(path_, "");
  });
  Write("x");
  EXPECT_EQ(Lines().size(), 1U);
  EXPECT_EQ(ReadFile(At("renamed")), "");
  EXPECT_TRUE(LockObjects(At("renamed"), LockObjects::Keep{}).gone());
  EXPECT_EQ(LockObjects(path_, LockObjects::Keep{}).users(), 1);
  Close();
}

TEST_F(RenamedLog, IsReplacedByTargetThatRegisters) {
  RegisterWhile([this] { std::filesystem::rename(path_, At("renamed")); });
  Write("x");
  Close();
  EXPECT_EQ(Lines().size(), 1U);
  EXPECT_EQ(ModeOf(path_), 0666);
}

}  // namespace
