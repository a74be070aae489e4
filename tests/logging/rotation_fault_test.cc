// Tests rotations in which one step fails.

#include <pthread.h>
#include <sched.h>
#include <sys/mount.h>
#include <cerrno>
#include <fstream>
#include <thread>

#include "logging/rotated_copy.h"
#include "support/namespaces.h"
#include "tests/logging/log_segments.h"
#include "tests/logging/system_faults.h"
#include "tests/support/process_pool.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::UnorderedElementsAre;

class RotationFault : public LogTargetSegmentsTest {
 protected:
  RotationFault() {
    g_faults = {};
    UseLimits(1, 900);
    WriteFile(path_, "content\n");
  }
  ~RotationFault() override { g_faults = {}; }
};

TEST_F(RotationFault, TruncatedCopyKeepsLog) {
  if (!CanUnshare(CLONE_NEWNS)) GTEST_SKIP() << "this system does not allow namespaces";
  ProcessPool pool;
  pool.Start([this] {
    if (!Unshare(CLONE_NEWNS) ||
        mount("tmpfs", folder_.path().c_str(), "tmpfs", 0, "size=15m") != 0) {
      return false;
    }
    const std::string content = Fill(kLimit);
    const bool opened = Open();
    EXPECT_TRUE(Text() == content);
    EXPECT_THAT(Names(), ElementsAre("test.log"));
    Write("x");
    EXPECT_THAT(Lines().back(), EndsWith(" | x"));
    Close();
    return opened && !HasFailure();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
}

TEST_F(RotationFault, FailedTruncationKeepsContentInLog) {
  g_faults.ftruncate = EIO;
  ASSERT_TRUE(Open());
  EXPECT_EQ(Text(), "content\n");
  EXPECT_THAT(Names(), ElementsAre("test.log"));
  Close();
}

TEST_F(RotationFault, RemovesUnremovableCopyLater) {
  g_faults.ftruncate = g_faults.unlink = EROFS;
  ASSERT_TRUE(Open());
  Write("x");
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", ".test.log.rotating"));
  {
    // Other processes find the rotation unfinished.
    std::fstream stream;
    tarn::LogFile file(stream);
    tarn::LogFileLock lock;
    tarn::RecoveryState state;
    ASSERT_TRUE(file.Open(path_));
    ASSERT_TRUE(state.Attach({lock, tarn::LogFileLock::HeldByCaller{}}, file));
    EXPECT_TRUE(state.rotating());
  }
  Close();
  g_faults = {};
  g_faults.ftruncate = EROFS;
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), ElementsAre("test.log"));
  EXPECT_EQ(Lines()[0], "content");
  Close();
}

TEST_F(RotationFault, UncomparableCopyKeepsHiddenName) {
  WriteFile(tarn::UnfinishedCopy(path_), "content\n");
  g_faults.pread = EIO;
  ASSERT_TRUE(Open());
  Close();
  EXPECT_EQ(Lines()[0], "content");
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", ".test.log.rotating"));
  UseLimits(1000, 900);
  g_faults = {};
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), ElementsAre("test.log"));
  Close();
}

TEST_F(RotationFault, CancellationWaitsForEndOfRotation) {
  ProcessPool pool;
  pool.Start([this] {
    const unsigned long long later = 4000000000000;
    UseLimits(1000, 900);
    const bool opened = Open();
    Fill(1000);
    Write("x", later);
    g_faults.after_ftruncate = [] { pthread_cancel(pthread_self()); };
    std::thread([&] { Write("dropped", later); }).join();
    EXPECT_FALSE(g_faults.after_ftruncate);
    EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
    Write("y", later);
    Close();
    return opened && !HasFailure();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
  EXPECT_THAT(Lines(), Contains(EndsWith(" | y")));
}

TEST_F(RotationFault, RenamesCopyWithoutHardLinks) {
  g_faults.link = EPERM;
  ASSERT_TRUE(Open());
  EXPECT_EQ(ReadFile(At(kCopy)), "content\n");
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  Close();
}

TEST_F(RotationFault, ReplacesNoCopyWithoutHardLinks) {
  g_faults.link = EPERM;
  WriteFile(At(kCopy), "earlier\n");
  ASSERT_TRUE(Open());
  EXPECT_EQ(ReadFile(At(kCopy)), "earlier\n");
  EXPECT_EQ(ReadFile(At("test 2026-11-15 21-05-07_002.log")), "content\n");
  Close();
}

TEST_F(RotationFault, NameThatCannotBeLookedUpCountsAsTaken) {
  g_faults.link = EPERM;
  g_faults.lstat = EIO;
  g_faults.path = kCopy;
  WriteFile(At(kCopy), "earlier\n");
  ASSERT_TRUE(Open());
  EXPECT_EQ(ReadFile(At(kCopy)), "earlier\n");
  EXPECT_EQ(ReadFile(tarn::UnfinishedCopy(path_)), "content\n");
  Close();
  g_faults = {};
  g_segments_now += 1;
  ASSERT_TRUE(Open());
  EXPECT_EQ(ReadFile(At("test 2026-11-15 21-05-08.log")), "content\n");
  Close();
}

TEST_F(RotationFault, RemovesHiddenNameOfNamedCopyLater) {
  g_faults.unlink = EIO;
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy, ".test.log.rotating"));
  Close();
  g_faults = {};
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  Close();
}

}  // namespace
