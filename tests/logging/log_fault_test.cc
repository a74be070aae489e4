// Tests faults around a log file. Each fault is real, such as a limit, a full disk or a missing
// permission, and is caused in a separate process.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>
#include <cerrno>
#include <filesystem>
#include <functional>

#include "logging/binary_lock.h"
#include "support/namespaces.h"
#include "tests/logging/log_file.h"
#include "tests/support/descriptor_limit.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"

namespace {

using testing::ElementsAre;

class LogFaultTest : public LogFileTest {
 protected:
  // Runs `body`, which checks with CHECK(), in a separate process.
  void Apart(const std::function<bool()>& body) {
    ProcessPool pool;
    pool.Start(body);
    EXPECT_EQ(pool.WaitForAll(), "");
  }

  // Writes a line and removes it. The undefined-behavior sanitizer needs descriptors for the first
  // check of each type, so all types must be checked before descriptors run out.
  bool WriteAndForget() {
    if (!Open()) return false;
    logger_.info("of no matter");
    Close();
    return std::filesystem::remove(path_);
  }
};

// For processes of Apart().
#define CHECK(condition)                                                   \
  do {                                                                     \
    if (!(condition)) {                                                    \
      std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition); \
      return false;                                                        \
    }                                                                      \
  } while (false)

constexpr char kNoNamespaces[] =
    "this system does not allow namespaces, as containers often do not";

// The identifier of a user without privileges and without files.
constexpr uid_t kNobody = 65534;

bool BecomeNobody() { return geteuid() != 0 || (setgid(kNobody) == 0 && setuid(kNobody) == 0); }

TEST_F(LogFaultTest, FullDiskStopsOnlyLog) {
  if (!CanUnshare(CLONE_NEWNS)) GTEST_SKIP() << kNoNamespaces;
  Apart([this] {
    CHECK(Unshare(CLONE_NEWNS));
    CHECK(mount("tmpfs", folder_.path().c_str(), "tmpfs", 0, "size=16k") == 0);
    CHECK(Open());
    for (int i = 0; i < 1000; ++i) {
      CHECK(Write("one of many lines that do not fit on this disk"));
    }
    Close();
    const std::vector<std::string> lines = Lines();
    CHECK(lines.size() > 50 && lines.size() < 1000);
    for (std::size_t i = 0; i + 1 < lines.size(); ++i)
      CHECK(lines[i] == lines[0]);
    return true;
  });
}

TEST_F(LogFaultTest, RegistrationFailsWithoutDescriptors) {
  Apart([this] {
    CHECK(WriteAndForget());
    const int next = dup(0);
    CHECK(next > 0 && close(next) == 0);
    const DescriptorLimit none(next);
    CHECK(!Open());
    logger_.info("dropped");
    return true;
  });
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(LogFaultTest, ToleratesLaterShortageOfDescriptors) {
  Apart([this] {
    CHECK(WriteAndForget());
    CHECK(Open());
    const DescriptorLimit none(0);
    logger_.info("first");
    logger_.info("second");
    Close();
    return true;
  });
  EXPECT_THAT(Messages(), ElementsAre("first", "second"));
}

TEST_F(LogFaultTest, FailsInReadOnlyFolder) {
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0555));
  Apart([this] {
    CHECK(BecomeNobody());
    CHECK(!Open());
    logger_.info("dropped");
    return true;
  });
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(LogFaultTest, ReadOnlyFileStaysUnchanged) {
  WriteFile(path_, "an earlier line\n");
  std::filesystem::permissions(path_, std::filesystem::perms(0444));
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
  Apart([this] {
    CHECK(BecomeNobody());
    CHECK(!Open());
    logger_.info("dropped");
    return true;
  });
  EXPECT_EQ(Text(), "an earlier line\n");
}

TEST_F(LogFaultTest, WritableFileOfAnotherUserIsShared) {
  ASSERT_TRUE(Open());
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
  Apart([this] {
    CHECK(BecomeNobody());
    tarn::LogTargetDefault target("of another");
    CHECK(target.setLogFile("test.log", folder_.path().c_str()));
    CHECK(core_->registerTarget(&target));
    tarn::Logger("of another").info("theirs");
    core_->unregisterTarget(&target);
    return true;
  });
  logger_.info("ours");
  Close();
  EXPECT_THAT(Messages(), ElementsAre("theirs", "ours"));
}

TEST_F(LogFaultTest, FailsWhenFolderHasNameOfFile) {
  std::filesystem::create_directory(path_);
  EXPECT_FALSE(Open());
  logger_.info("dropped");
  EXPECT_TRUE(std::filesystem::is_empty(path_));
}

TEST_F(LogFaultTest, MissingHomeIsCreated) {
  const std::string home = folder_.path() + "/home";
  const ScopedVariable variable("HOME", home.c_str());
  EXPECT_TRUE(target_->setLogFile("test.log", ""));
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  logger_.info("x");
  Close();
  EXPECT_EQ(ReadLines(home + "/Library/Logs/Cirrane/CRN/test.log").size(), 1U);
}

TEST_F(LogFaultTest, FailsWhenHomeCannotBeCreated) {
  WriteFile(folder_.path() + "/file", "");
  const ScopedVariable variable("HOME", (folder_.path() + "/file/home").c_str());
  EXPECT_FALSE(target_->setLogFile("test.log", ""));
  EXPECT_FALSE(core_->registerTarget(target_.get()));
  logger_.info("dropped");
}

TEST_F(LogFaultTest, DropsLinesWithoutSemaphores) {
  if (!CanUnshare(CLONE_NEWIPC)) GTEST_SKIP() << kNoNamespaces;
  Apart([this] {
    CHECK(Unshare(CLONE_NEWIPC));
    WriteFile("/proc/sys/kernel/sem", "32000 32000 500 0");
    CHECK(Open());
    CHECK(Write("dropped"));
    Close();
    WriteFile("/proc/sys/kernel/sem", "32000 32000 500 10");
    CHECK(Open());
    CHECK(Write("written"));
    Close();
    return true;
  });
  EXPECT_THAT(Messages(), ElementsAre("written"));
}

TEST_F(LogFaultTest, LinesAreWrittenAtMaximumUserCount) {
  const LockObjects objects(path_);
  tarn::BinaryLock earlier;
  ASSERT_TRUE(earlier.create(path_, LockObjects::kProject));
  ASSERT_TRUE(objects.set_users(32767));
  ASSERT_TRUE(Open());
  logger_.info("written");
  Close();
  EXPECT_THAT(Messages(), ElementsAre("written"));
  EXPECT_EQ(objects.users(), 32767);
}

TEST_F(LogFaultTest, WritesLinesWithoutSharedMemory) {
  if (!CanUnshare(CLONE_NEWIPC)) GTEST_SKIP() << kNoNamespaces;
  Apart([this] {
    CHECK(Unshare(CLONE_NEWIPC));
    WriteFile("/proc/sys/kernel/shmmni", "0");
    CHECK(Open());
    CHECK(Write("written"));
    Close();
    return true;
  });
  EXPECT_THAT(Messages(), ElementsAre("written"));
}

// Holds until the next check of the size.
TEST_F(LogFaultTest, WritesToRemovedFileUntilNextCheck) {
  ASSERT_TRUE(Open());
  Write("to the removed file", 0);
  std::filesystem::remove(path_);
  Write("to the removed file", 0);
  tarn::LogTargetDefault other("other");
  ASSERT_TRUE(other.setLogFile("test.log", folder_.path().c_str()));
  ASSERT_TRUE(core_->registerTarget(&other));
  tarn::Logger("other").info("to the new file");
  Write("to the removed file", 0);
  core_->unregisterTarget(&other);
  Close();
  EXPECT_THAT(Messages(), ElementsAre("to the new file"));
}

TEST_F(LogFaultTest, WritesToRenamedFileUntilNextCheck) {
  ASSERT_TRUE(Open());
  Write("first", 0);
  std::filesystem::rename(path_, path_ + ".old");
  Write("second", 0);
  Close();
  EXPECT_EQ(ReadLines(path_ + ".old").size(), 2U);
  EXPECT_FALSE(std::filesystem::exists(path_));
}

}  // namespace
