#include "platform/os_version.h"

#include <gtest/gtest.h>

namespace {

TEST(OSVersionTest, HasMajorNumberAndNoNegativeNumbers) {
  long long major = -1;
  long long minor = -1;
  long long patch = -1;
  ASSERT_TRUE(platform::GetOSVersion(major, minor, patch));
  EXPECT_GT(major, 0);
  EXPECT_GE(minor, 0);
  EXPECT_GE(patch, 0);
}

}  // namespace
