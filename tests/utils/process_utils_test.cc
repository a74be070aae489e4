#include "utils/process_utils.h"

#include <gtest/gtest.h>
#include <vector>

#include "tests/support/descriptor_limit.h"

namespace {

TEST(ProcessUtilsTest, MemoryGrowsWithHeap) {
  unsigned long long before = 0;
  ASSERT_TRUE(TarnUtils::ProcessUtils::GetProcessRunningMemory(before));
  const std::vector<char> heap(32 << 20, 'x');
  unsigned long long after = 0;
  ASSERT_TRUE(TarnUtils::ProcessUtils::GetProcessRunningMemory(after));
  EXPECT_GE(after, before + (24 << 20)) << heap[0];
}

TEST(ProcessUtilsTest, FailureReturnsFalseAndZeroBytes) {
  unsigned long long bytes = 0;
  ASSERT_TRUE(TarnUtils::ProcessUtils::GetProcessRunningMemory(bytes));
  const DescriptorLimit none(0);  // the memory figure cannot be read
  EXPECT_FALSE(TarnUtils::ProcessUtils::GetProcessRunningMemory(bytes));
  EXPECT_EQ(bytes, 0U);
}

}  // namespace
