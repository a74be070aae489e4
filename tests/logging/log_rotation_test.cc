#include "logging/log_rotation.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <filesystem>
#include <fstream>
#include <optional>

#include "tests/logging/log_segments.h"
#include "tests/support/process_pool.h"

namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using Result = tarn::LogRotation::Result;
using Scope = tarn::LogFileLock::Scope;

// Tests rotation without a target.
class LogRotation : public LogTargetSegmentsTest {
 protected:
  LogRotation() {
    WriteFile(path_, "content\n");
    limits_.segment_size = 1;
    lock_.Create(path_);
    scope_.emplace(lock_);
  }

  Result Rotate() {
    EXPECT_TRUE(file_.Open(path_));
    state_.Attach(*scope_, file_);
    rotation_.emplace(file_, state_, limits_);
    return rotation_->Rotate(*scope_, tarn::INFO);
  }

  std::fstream stream_;
  tarn::LogFile file_{stream_};
  tarn::LogFileLock lock_;
  std::optional<Scope> scope_;
  tarn::RecoveryState state_;
  tarn::LogRotation::Limits limits_;
  std::optional<tarn::LogRotation> rotation_;
};

TEST_F(LogRotation, MoreDetailedLevelsHaveLargerFiles) {
  EXPECT_EQ(tarn::LogRotation::SegmentSize(tarn::TRACE), 52428800);
  EXPECT_EQ(tarn::LogRotation::SegmentSize(tarn::DEBUG), 20971520);
  for (const tarn::Log_Level level : {tarn::INFO, tarn::WARN, tarn::ERROR, tarn::FATAL, tarn::NONE})
    EXPECT_EQ(tarn::LogRotation::SegmentSize(level), 10485760);
  EXPECT_EQ(tarn::LogRotation::SegmentSize(static_cast<tarn::Log_Level>(15)), 10485760);
}

TEST_F(LogRotation, CheckIsDueAfterIntervalAndAfterClockIsSetBack) {
  const tarn::LogRotation::Limits limits;
  tarn::LogRotation rotation(file_, state_, limits);
  rotation.SetChecked(1000);
  EXPECT_FALSE(rotation.IsCheckDue(1000));
  EXPECT_FALSE(rotation.IsCheckDue(1899));
  EXPECT_TRUE(rotation.IsCheckDue(1900));
  EXPECT_TRUE(rotation.IsCheckDue(999));
}

TEST_F(LogRotation, MovesContentToCopy) {
  EXPECT_EQ(Rotate(), Result::kRotated);
  EXPECT_EQ(ReadFile(At(kCopy)), "content\n");
  EXPECT_EQ(Text(), "");
  EXPECT_TRUE(state_.header_due());
  EXPECT_FALSE(state_.rotating());
}

TEST_F(LogRotation, LeavesSmallFile) {
  limits_.segment_size = 9;
  EXPECT_EQ(Rotate(), Result::kSmall);
  EXPECT_FALSE(state_.header_due());
}

TEST_F(LogRotation, LeavesFileOfAnotherProgram) {
  Rotate();
  std::filesystem::rename(path_, At("moved"));
  WriteFile(path_, "of another program\n");
  WriteFile(At(".test.log.rotating"), "of another program\n");
  EXPECT_EQ(rotation_->Rotate(*scope_, tarn::INFO), Result::kSmall);
  rotation_->Recover(*scope_);
  EXPECT_EQ(Text(), "of another program\n");
  EXPECT_TRUE(std::filesystem::exists(At(".test.log.rotating")));
}

TEST_F(LogRotation, ReportsMissingFile) {
  Rotate();
  std::filesystem::remove(path_);
  EXPECT_EQ(rotation_->Rotate(*scope_, tarn::INFO), Result::kNoSize);
  WriteFile(path_, "");
}

TEST_F(LogRotation, RenamesLogBeyondCopiedSize) {
  limits_.max_copied_size = 7;
  EXPECT_EQ(Rotate(), Result::kMoved);
  EXPECT_THAT(Names(), ElementsAre(".test.log.rotating"));
  ASSERT_TRUE(file_.Reopen());
  scope_->MoveTo(path_);
  ASSERT_TRUE(scope_->held());
  state_.Attach(*scope_, file_);
  rotation_->Recover(*scope_);
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  EXPECT_TRUE(state_.header_due());
}

TEST_F(LogRotation, RenamedLogLeavesNoState) {
  limits_.max_copied_size = 7;
  WriteFile(path_, "half of a line");
  ASSERT_TRUE(file_.Open(path_));
  ASSERT_TRUE(state_.Attach(*scope_, file_));
  state_.SetWriting(*scope_, true);
  state_.SetHeaderDue(*scope_, true);
  EXPECT_EQ(Rotate(), Result::kMoved);
  state_.Detach();
  lock_.Discard();
  const std::string renamed = At(".test.log.rotating");
  EXPECT_TRUE(LockObjects(renamed, LockObjects::Keep{}).gone());
  EXPECT_EQ(ReadFile(renamed), "half of a line\n");
}

TEST_F(LogRotation, CopiesLogWhoseLockCannotMove) {
  limits_.max_copied_size = 7;
  scope_.emplace(lock_, tarn::LogFileLock::HeldByCaller{});
  EXPECT_EQ(Rotate(), Result::kRotated);
  EXPECT_EQ(ReadFile(At(kCopy)), "content\n");
}

TEST_F(LogRotation, CopiesLogWithTwoNames) {
  limits_.max_copied_size = 7;
  std::filesystem::create_hard_link(path_, At("another name"));
  EXPECT_EQ(Rotate(), Result::kRotated);
  EXPECT_EQ(ReadFile(At(kCopy)), "content\n");
}

TEST_F(LogRotation, KeepsCopyThatItMadeWithOldName) {
  WriteFile(At("test 2026-11-15 22-00-00.log"), "");
  WriteFile(At("test 2026-11-15 23-00-00.log"), "");
  Rotate();
  rotation_->RemoveOldCopies(*scope_, 2);
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy, "test 2026-11-15 23-00-00.log"));
  // At the next rotation it is an ordinary copy.
  WriteFile(At("test 2026-11-15 22-00-00.log"), "");
  rotation_->RemoveOldCopies(*scope_, 2);
  EXPECT_FALSE(WasRotated());
}

class KeepMarker : public testing::Test {
 protected:
  bool KeptWith(const std::string& content) const {
    WriteFile(marker_, content);
    return tarn::KeepsAllCopies(folder_.path());
  }

  const TemporaryFolder folder_;
  const std::string marker_ = folder_.path() + "/pvx.trace";
};

TEST_F(KeepMarker, HasNoEffectWithOtherContent) {
  EXPECT_FALSE(tarn::KeepsAllCopies(folder_.path()));
  EXPECT_TRUE(KeptWith("keeplogs"));
  EXPECT_TRUE(KeptWith(std::string("keeplogs\0", 9)));
  EXPECT_TRUE(KeptWith(std::string("keeplogs\0more", 13)));
  EXPECT_FALSE(KeptWith("keeplogs\n"));
  EXPECT_FALSE(KeptWith("keeplogs2"));
  EXPECT_FALSE(KeptWith("keeplog"));
  EXPECT_FALSE(KeptWith("KEEPLOGS"));
  EXPECT_FALSE(KeptWith(" keeplogs"));
  EXPECT_FALSE(KeptWith(""));
}

TEST_F(KeepMarker, HasNoEffectWhenNotRegularFile) {
  std::filesystem::create_directory(marker_);
  EXPECT_FALSE(tarn::KeepsAllCopies(folder_.path()));
  std::filesystem::remove(marker_);
  ASSERT_EQ(mkfifo(marker_.c_str(), 0600), 0);
  EXPECT_FALSE(tarn::KeepsAllCopies(folder_.path()));
}

TEST_F(KeepMarker, HasNoEffectWhenUnreadable) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can take on another identity";
  WriteFile(marker_, "keeplogs");
  ASSERT_EQ(chmod(marker_.c_str(), 0600), 0);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
  ProcessPool pool;
  pool.Start([this] { return setuid(65534) == 0 && !tarn::KeepsAllCopies(folder_.path()); });
  EXPECT_EQ(pool.WaitForAll(), "");
}

TEST_F(KeepMarker, HasNoEffectWhenSocket) {
  ASSERT_EQ(mknod(marker_.c_str(), S_IFSOCK | 0600, 0), 0);
  EXPECT_FALSE(tarn::KeepsAllCopies(folder_.path()));
}

TEST_F(KeepMarker, NeedNotBeWritable) {
  WriteFile(marker_, "keeplogs");
  ASSERT_EQ(chmod(marker_.c_str(), 0444), 0);
  EXPECT_TRUE(tarn::KeepsAllCopies(folder_.path()));
}

}  // namespace
