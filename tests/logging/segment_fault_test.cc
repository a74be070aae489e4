// Tests shared memory that cannot be used.

#include <gmock/gmock.h>
#include <cerrno>
#include <fstream>

#include "logging/recovery_state.h"
#include "tests/logging/log_file.h"
#include "tests/logging/system_faults.h"

namespace {

class SegmentFault : public LogFileTest {
 protected:
  ~SegmentFault() override { g_faults = {}; }
};

TEST_F(SegmentFault, RemovesNewSegmentItCannotAttach) {
  const LockObjects objects(path_);
  std::fstream stream;
  tarn::LogFile file(stream);
  tarn::LogFileLock lock;
  tarn::RecoveryState state;
  ASSERT_TRUE(file.Open(path_));
  g_faults.shmat = ENOMEM;
  EXPECT_FALSE(state.Attach({lock, tarn::LogFileLock::HeldByCaller{}}, file));
  EXPECT_TRUE(objects.gone());
}

TEST_F(SegmentFault, KeepsSegmentOfOthers) {
  const LockObjects objects(path_);
  std::fstream stream;
  tarn::LogFile file(stream);
  tarn::LogFileLock lock;
  const tarn::LogFileLock::Scope scope(lock, tarn::LogFileLock::HeldByCaller{});
  tarn::RecoveryState first;
  tarn::RecoveryState second;
  ASSERT_TRUE(file.Open(path_));
  ASSERT_TRUE(first.Attach(scope, file));
  first.SetHeaderDue(scope, true);
  first.Detach();
  g_faults.shmat = ENOMEM;
  EXPECT_FALSE(second.Attach(scope, file));
  EXPECT_NE(objects.memory_segment(), -1);
}

// The torn line comes from a process that shares no state.
TEST_F(SegmentFault, LineIsNotAppendedToTornLine) {
  g_faults.shmat = ENOMEM;
  ASSERT_TRUE(Open());
  Write("x");
  std::ofstream(path_, std::ios::app) << "half of a line";
  Write("y");
  Write("z");
  Close();
  EXPECT_THAT(Messages(), testing::ElementsAre("x", testing::_, "y", "z"));
  EXPECT_EQ(Lines()[1], "half of a line");
}

TEST_F(SegmentFault, SharingIsRetriedWithCheckOfSize) {
  UseLimits(1 << 20, 900);
  g_faults.shmat = ENOMEM;
  ASSERT_TRUE(Open());
  const LockObjects objects(path_, LockObjects::Keep{});
  EXPECT_EQ(objects.memory_segment(), -1);
  const unsigned long long later = 4000000000000;
  Write("x", later);
  g_faults = {};
  EXPECT_EQ(objects.memory_segment(), -1);
  Write("y", later);
  EXPECT_NE(objects.memory_segment(), -1);
  Close();
}

}  // namespace
