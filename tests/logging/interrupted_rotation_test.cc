#include <sys/stat.h>
#include <fstream>

#include "logging/rotated_copy.h"
#include "tests/logging/log_segments.h"
#include "tests/support/process_pool.h"

namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

// Creates the files that a process leaves when it is killed between two steps of a rotation. The
// stress tests kill a process before each of its system calls.
class InterruptedRotationTest : public LogTargetSegmentsTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(file_.Open(path_));
    ASSERT_TRUE(state_.Attach(scope_, file_));
    content_ = Fill(1000);
    state_.SetRotating(scope_, true);
  }
  void TearDown() override {
    Close();
    EXPECT_FALSE(state_.rotating());
    EXPECT_FALSE(std::filesystem::exists(unfinished_));
  }

  void ExpectContentInLog() const {
    EXPECT_EQ(Text().substr(0, content_.size()), content_);
    EXPECT_THAT(Names(), ElementsAre("test.log"));
  }
  void ExpectContentInCopy() const {
    EXPECT_EQ(ReadFile(At(kCopy)), content_);
    EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  }

  // Registers a target as a user who may not read files of mode 0600.
  void RegisterAsNobody() const {
    std::filesystem::permissions(folder_.path(), std::filesystem::perms(0777));
    std::filesystem::permissions(path_, std::filesystem::perms(0666));
    ProcessPool pool;
    pool.Start([this] {
      if (setgid(kNobody) != 0 || setuid(kNobody) != 0) return false;
      tarn::LogTargetDefault other("other");
      return other.setLogFile("test.log", folder_.path().c_str()) && other.onRegisterTarget() &&
             other.onUnregisterTarget();
    });
    EXPECT_EQ(pool.WaitForAll(), "");
  }
  void WritePrivateCopy(const std::string& content) const {
    WriteFile(unfinished_, content);
    std::filesystem::permissions(unfinished_, std::filesystem::perms(0600));
  }

  static constexpr uid_t kNobody = 65534;
  static constexpr char kNotRoot[] = "only root can take on another identity";
  std::fstream stream_;
  tarn::LogFile file_{stream_};
  tarn::LogFileLock lock_;
  const tarn::LogFileLock::Scope scope_{lock_, tarn::LogFileLock::HeldByCaller{}};
  tarn::RecoveryState state_;
  std::string content_;
  const std::string unfinished_ = tarn::UnfinishedCopy(path_);
};

TEST_F(InterruptedRotationTest, LogWithoutCopyStays) {
  Write("x");
  ExpectContentInLog();
}

TEST_F(InterruptedRotationTest, PartialCopyIsRemoved) {
  WriteFile(unfinished_, content_.substr(0, 500));
  Write("x");
  ExpectContentInLog();
}

TEST_F(InterruptedRotationTest, CompleteCopyOfFullLogIsRemoved) {
  WriteFile(unfinished_, content_);
  Write("x");
  ExpectContentInLog();
}

TEST_F(InterruptedRotationTest, CompleteCopyOfGrownLogIsRemoved) {
  WriteFile(unfinished_, content_);
  WriteFile(path_, content_ + "more\n");
  Write("x");
  ExpectContentInLog();
  EXPECT_EQ(Text().substr(content_.size(), 5), "more\n");
}

TEST_F(InterruptedRotationTest, CopyOfEmptiedLogIsNamed) {
  WriteFile(unfinished_, content_);
  WriteFile(path_, "");
  Write("x");
  ExpectContentInCopy();
  EXPECT_EQ(Messages().size(), 7U);
}

TEST_F(InterruptedRotationTest, CopyIsNamedEvenIfLogWasWrittenTo) {
  WriteFile(unfinished_, content_);
  WriteFile(path_, "another line\n");
  Write("x");
  ExpectContentInCopy();
  EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(InterruptedRotationTest, RemovesHiddenNameOfNamedCopy) {
  WriteFile(unfinished_, content_);
  std::filesystem::create_hard_link(unfinished_, At(kCopy));
  WriteFile(path_, "");
  Write("x");
  ExpectContentInCopy();
}

TEST_F(InterruptedRotationTest, LinkUnderHiddenNameIsRemoved) {
  const TemporaryFolder elsewhere;
  WriteFile(elsewhere.path() + "/file", "kept");
  std::filesystem::create_symlink(elsewhere.path() + "/file", unfinished_);
  Write("x");
  ExpectContentInLog();
  EXPECT_EQ(ReadFile(elsewhere.path() + "/file"), "kept");
}

TEST_F(InterruptedRotationTest, PipeUnderHiddenNameIsRemoved) {
  ASSERT_EQ(mkfifo(unfinished_.c_str(), 0600), 0);
  Write("x");
  ExpectContentInLog();
}

TEST_F(InterruptedRotationTest, SocketUnderHiddenNameIsRemoved) {
  ASSERT_EQ(mknod(unfinished_.c_str(), S_IFSOCK | 0600, 0), 0);
  Write("x");
  ExpectContentInLog();
}

TEST_F(InterruptedRotationTest, EmptyFolderUnderHiddenNameIsRemoved) {
  std::filesystem::create_directory(unfinished_);
  Write("x");
  ExpectContentInLog();
}

TEST_F(InterruptedRotationTest, FolderWithFilesGetsAnotherHiddenName) {
  std::filesystem::create_directory(unfinished_);
  WriteFile(unfinished_ + "/file", "kept");
  Write("x");
  EXPECT_EQ(ReadFile(unfinished_ + " 2026-11-15 21-05-07/file"), "kept");
  EXPECT_EQ(Text().substr(0, content_.size()), content_);
}

TEST_F(InterruptedRotationTest, IgnoresCopyOfAnotherPathToLog) {
  const TemporaryFolder elsewhere;
  std::filesystem::create_symlink(path_, elsewhere.path() + "/alias.log");
  WriteFile(tarn::UnfinishedCopy(elsewhere.path() + "/alias.log"), content_);
  Write("x");
  ExpectContentInLog();
}

TEST_F(InterruptedRotationTest, UnreadablePartialCopyIsRemoved) {
  if (geteuid() != 0) GTEST_SKIP() << kNotRoot;
  WritePrivateCopy(content_.substr(0, 500));
  RegisterAsNobody();
  ExpectContentInLog();
}

TEST_F(InterruptedRotationTest, UnreadableCopyOfEmptiedLogIsNamed) {
  if (geteuid() != 0) GTEST_SKIP() << kNotRoot;
  WritePrivateCopy(content_);
  WriteFile(path_, "");
  RegisterAsNobody();
  ExpectContentInCopy();
}

TEST_F(InterruptedRotationTest, UnreadableCompleteCopyIsNamed) {
  if (geteuid() != 0) GTEST_SKIP() << kNotRoot;
  WritePrivateCopy(content_);
  std::filesystem::permissions(unfinished_, std::filesystem::perms(0640));
  RegisterAsNobody();
  ExpectContentInCopy();
}

TEST_F(InterruptedRotationTest, IsCompletedByNextTarget) {
  WriteFile(unfinished_, content_);
  WriteFile(path_, "");
  tarn::LogTargetDefault other("other");
  ASSERT_TRUE(other.setLogFile("test.log", folder_.path().c_str()));
  ASSERT_TRUE(other.onRegisterTarget());
  ExpectContentInCopy();
  other.onUnregisterTarget();
}

// Simulates a restart of the system, which does not keep shared memory.
TEST_F(InterruptedRotationTest, IsCompletedByNextTargetWithoutSharedWords) {
  state_.SetRotating(scope_, false);
  WriteFile(unfinished_, content_);
  WriteFile(path_, "");
  tarn::LogTargetDefault other("other");
  ASSERT_TRUE(other.setLogFile("test.log", folder_.path().c_str()));
  ASSERT_TRUE(other.onRegisterTarget());
  ExpectContentInCopy();
  EXPECT_TRUE(state_.header_due());
  other.onUnregisterTarget();
}

}  // namespace
