// Tests the count of a lock's users.

#include "tests/logging/binary_lock.h"
#include "tests/support/process_pool.h"

namespace {

// The kernel's SEMVMX.
constexpr int kMaximumUsers = 32767;

class UncountedLockTest : public BinaryLockTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Attach(counted_));
    ASSERT_TRUE(objects_.set_users(kMaximumUsers));
    ASSERT_TRUE(Attach(uncounted_));
  }

  tarn::BinaryLock counted_;
  tarn::BinaryLock uncounted_;
};

TEST_F(UncountedLockTest, AttachesUncountedAtMaximumUserCount) {
  EXPECT_EQ(objects_.users(), kMaximumUsers);
  EXPECT_TRUE(uncounted_.wait());
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(uncounted_.release());
  EXPECT_TRUE(uncounted_.finalize());
  EXPECT_EQ(objects_.users(), kMaximumUsers);
  EXPECT_TRUE(counted_.finalize());
  EXPECT_EQ(objects_.users(), kMaximumUsers - 1);
}

TEST_F(UncountedLockTest, LastCountedUserKeepsSetHeldByUncountedUser) {
  ASSERT_TRUE(uncounted_.wait());
  const int held = objects_.semaphore_set();
  ASSERT_TRUE(objects_.set_users(1));
  EXPECT_TRUE(counted_.finalize());
  EXPECT_EQ(objects_.semaphore_set(), held);
  EXPECT_EQ(objects_.free(), 0);
  EXPECT_TRUE(uncounted_.release());
  EXPECT_TRUE(Attach(counted_));
  EXPECT_TRUE(counted_.finalize());
  EXPECT_TRUE(objects_.gone());
}

TEST_F(UncountedLockTest, UncountedUserIsCountedInRecreatedSet) {
  ASSERT_TRUE(objects_.set_users(1));
  EXPECT_TRUE(counted_.finalize());
  ASSERT_TRUE(objects_.gone());
  EXPECT_TRUE(uncounted_.wait());
  EXPECT_EQ(objects_.users(), 1);
  EXPECT_TRUE(uncounted_.release());
  EXPECT_TRUE(uncounted_.finalize());
  EXPECT_TRUE(objects_.gone());
}

TEST_F(BinaryLockTest, ForkedChildLowersNoCountAndKeepsSet) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  const int set = objects_.semaphore_set();
  ProcessPool pool;
  pool.Start([&] { return lock.wait() && lock.release() && lock.finalize(); });
  EXPECT_EQ(pool.WaitForAll(), "");
  EXPECT_EQ(objects_.semaphore_set(), set);
  EXPECT_EQ(objects_.users(), 1);
}

TEST_F(BinaryLockTest, ForkedChildIsCountedInRecreatedSet) {
  tarn::BinaryLock lock;
  ASSERT_TRUE(Attach(lock));
  ProcessPool pool;
  pool.Start([&] {
    objects_.Remove();
    if (!lock.wait() || !lock.release() || objects_.users() != 1) return false;
    return lock.finalize() && objects_.gone();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
}

}  // namespace
