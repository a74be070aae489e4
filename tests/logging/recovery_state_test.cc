#include "logging/recovery_state.h"

#include <gtest/gtest.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>

#include "support/files.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

namespace {

class RecoveryState : public testing::Test {
 protected:
  RecoveryState() { file_.Open(path_); }

  bool Attach(tarn::RecoveryState& state) const { return state.Attach(scope_, file_); }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/file";
  const LockObjects objects_{path_};
  std::fstream stream_;
  tarn::LogFile file_{stream_};
  tarn::LogFileLock lock_;
  const tarn::LogFileLock::Scope scope_{lock_, tarn::LogFileLock::HeldByCaller{}};
};

TEST_F(RecoveryState, IsSharedByAllThatAttach) {
  tarn::RecoveryState first;
  tarn::RecoveryState second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(Attach(second));
  EXPECT_FALSE(second.writing());
  first.SetWriting(scope_, true);
  EXPECT_TRUE(second.writing());
  first.SetWriting(scope_, false);
  EXPECT_FALSE(second.writing());
}

TEST_F(RecoveryState, OutlivesItsWriter) {
  tarn::RecoveryState state;
  ASSERT_TRUE(Attach(state));
  ProcessPool pool;
  pool.Start([this] {
    tarn::RecoveryState own;
    if (Attach(own)) own.SetWriting(scope_, true);
    return raise(SIGKILL) == 0;
  });
  pool.WaitForAll();
  EXPECT_TRUE(state.writing());
}

TEST_F(RecoveryState, IsRemovedByLastUser) {
  tarn::RecoveryState first;
  tarn::RecoveryState second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(Attach(second));
  first.Detach();
  EXPECT_NE(objects_.memory_segment(), -1);
  second.Detach();
  EXPECT_TRUE(objects_.gone());
}

TEST_F(RecoveryState, StaysForNextStartWhenWordIsSet) {
  using Setter = void (tarn::RecoveryState::*)(const tarn::LogFileLock::Scope&, bool);
  for (const Setter set : {&tarn::RecoveryState::SetWriting, &tarn::RecoveryState::SetRotating,
                           &tarn::RecoveryState::SetHeaderDue}) {
    tarn::RecoveryState state;
    ASSERT_TRUE(Attach(state));
    (state.*set)(scope_, true);
    state.Detach();
    EXPECT_NE(objects_.memory_segment(), -1);
    ASSERT_TRUE(Attach(state));
    EXPECT_EQ(state.writing() + state.rotating() + state.header_due(), 1);
    (state.*set)(scope_, false);
    state.Detach();
    EXPECT_TRUE(objects_.gone());
  }
}

TEST_F(RecoveryState, HasWordsWithoutSharedMemory) {
  ASSERT_NE(shmget(ftok(path_.c_str(), LockObjects::kProject), 4096, IPC_CREAT | 0600), -1);
  tarn::RecoveryState state;
  EXPECT_FALSE(Attach(state));
  EXPECT_FALSE(state.is_shared());
  EXPECT_TRUE(state.IsOf(file_.identity()));
  state.SetHeaderDue(scope_, true);
  EXPECT_TRUE(state.header_due());
  // The segment of the other program stays unchanged as long as it exists.
  EXPECT_NE(objects_.memory_segment(), -1);
  objects_.Remove();
  ASSERT_TRUE(Attach(state));
  EXPECT_TRUE(state.header_due());
  state.SetHeaderDue(scope_, false);
}

TEST_F(RecoveryState, SwitchesToAnotherFile) {
  const std::string other = folder_.path() + "/other";
  const LockObjects others(other);
  tarn::RecoveryState state;
  ASSERT_TRUE(Attach(state));
  state.SetHeaderDue(scope_, true);
  ASSERT_TRUE(file_.Open(other));
  EXPECT_FALSE(state.IsOf(file_.identity()));
  ASSERT_TRUE(Attach(state));
  EXPECT_FALSE(state.header_due());
  ASSERT_TRUE(file_.Open(path_));
  ASSERT_TRUE(Attach(state));
  EXPECT_TRUE(state.header_due());
  EXPECT_TRUE(others.gone());
}

TEST_F(RecoveryState, IsNotSharedWhenPathLeadsElsewhere) {
  const std::string aside = folder_.path() + "/aside";
  std::filesystem::rename(path_, aside);
  WriteFile(path_, "");
  tarn::RecoveryState state;
  EXPECT_FALSE(Attach(state));
  EXPECT_TRUE(state.IsOf(file_.identity()));
  EXPECT_EQ(objects_.memory_segment(), -1);
  std::filesystem::rename(aside, path_);
  EXPECT_TRUE(Attach(state));
}

// Two files can have the same key if their inode numbers differ only in bits that the key lacks.
TEST_F(RecoveryState, IsNotSharedWithAnotherFileOfSameKey) {
  const key_t key = ftok(path_.c_str(), LockObjects::kProject);
  tarn::RecoveryState state;
  ASSERT_TRUE(Attach(state));
  state.SetHeaderDue(scope_, true);
  // Simulates words of another file; the fourth word is the inode.
  auto* const words = static_cast<std::uint64_t*>(shmat(shmget(key, 0, 0), nullptr, 0));
  ++words[3];
  tarn::RecoveryState other;
  EXPECT_FALSE(Attach(other));
  EXPECT_FALSE(other.is_shared());
  EXPECT_EQ(shmdt(words), 0);
  state.Detach();
  // No process has the other file open now.
  ASSERT_TRUE(Attach(other));
  EXPECT_FALSE(other.header_due());
  other.Detach();
  EXPECT_TRUE(objects_.gone());
}

}  // namespace
