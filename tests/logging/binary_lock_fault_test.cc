// Tests a lock that the system refuses to release. The linker redirects the library's calls to the
// function below.

#include <gtest/gtest.h>
#include <sys/sem.h>
#include <cerrno>

#include "logging/binary_lock.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

namespace {

int g_failures = 0;  // how many of the next calls fail

class BinaryLockFaultTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(lock_.create(path_, LockObjects::kProject));
    ASSERT_TRUE(other_.create(path_, LockObjects::kProject));
    ASSERT_TRUE(lock_.wait());
  }

  void FailToRelease(int failures) {
    g_failures = failures;
    EXPECT_FALSE(lock_.release());
    EXPECT_EQ(objects_.free(), 0);
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/file";
  const LockObjects objects_{path_};
  tarn::BinaryLock lock_;
  tarn::BinaryLock other_;
};

TEST_F(BinaryLockFaultTest, CanBeTakenAfterFailedRelease) {
  FailToRelease(1);
  EXPECT_TRUE(lock_.wait());
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(lock_.release());
  EXPECT_EQ(objects_.free(), 1);
}

TEST_F(BinaryLockFaultTest, StaysTakenWhileReleaseFails) {
  FailToRelease(2);
  EXPECT_TRUE(lock_.wait());
  EXPECT_EQ(g_failures, 0);
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(lock_.release());
  EXPECT_EQ(objects_.free(), 1);
}

TEST_F(BinaryLockFaultTest, DetachReleasesKeptLock) {
  FailToRelease(1);
  EXPECT_TRUE(lock_.finalize());
  EXPECT_EQ(objects_.free(), 1);
}

TEST_F(BinaryLockFaultTest, ForkedChildLeavesKeptLockToItsParent) {
  FailToRelease(1);
  ProcessPool pool;
  // The kernel undoes the operations of the child when the child ends.
  pool.Start([this] { return lock_.finalize() && objects_.free() == 0; });
  EXPECT_EQ(pool.WaitForAll(), "");
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(lock_.wait());
  EXPECT_TRUE(lock_.release());
  EXPECT_EQ(objects_.free(), 1);
}

}  // namespace

extern "C" {
int __real_semop(int set, sembuf* operations, size_t count);

int __wrap_semop(int set, sembuf* operations, size_t count) {
  if (g_failures == 0) return __real_semop(set, operations, count);
  --g_failures;
  errno = ENOMEM;
  return -1;
}
}
