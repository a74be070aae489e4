#include "utils/process_utils.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <vector>

namespace {

TEST(ProcessUtilsTest, MemoryGrowsWithTheHeap) {
  unsigned long long before = 0;
  ASSERT_TRUE(TarnUtils::ProcessUtils::GetProcessRunningMemory(before));
  const std::vector<char> heap(32 << 20, 'x');
  unsigned long long after = 0;
  ASSERT_TRUE(TarnUtils::ProcessUtils::GetProcessRunningMemory(after));
  EXPECT_GE(after, before + (24 << 20)) << heap[0];
}

TEST(ProcessUtilsTest, FailureIsFalseWithZeroBytes) {
  // Without a free descriptor the figure cannot be read.
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
  const rlimit none{0, limit.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  unsigned long long bytes = 1;
  const bool result = TarnUtils::ProcessUtils::GetProcessRunningMemory(bytes);
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
  EXPECT_FALSE(result);
  EXPECT_EQ(bytes, 0U);
}

}  // namespace
