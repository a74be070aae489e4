#include "helper/memory_limit.h"

#include <gtest/gtest.h>

namespace {

TEST(MemoryLimitTest, IsTooMuchMemoryAtLimit) {
  EXPECT_FALSE(IsTooMuchMemory(0));
  EXPECT_FALSE(IsTooMuchMemory(524287999));
  EXPECT_TRUE(IsTooMuchMemory(524288000));
  EXPECT_TRUE(IsTooMuchMemory(~0ULL));
}

TEST(MemoryLimitTest, FormatMemoryRoundsDownToMebibytes) {
  EXPECT_EQ(FormatMemory(524287999), "499 MB");
  EXPECT_EQ(FormatMemory(524288000), "500 MB");
  EXPECT_EQ(FormatMemory(734003199), "699 MB");
  EXPECT_EQ(FormatMemory(734003200), "700 MB");
}

}  // namespace
