#include "logging/os_utils.h"

#include <gtest/gtest.h>

namespace {

TEST(SystemVersionTest, MatchesKernel) {
  int major = -1;
  int minor = -1;
  int bugfix = -1;
  EXPECT_TRUE(tarn::utilGetCurrentOSVersion(major, minor, bugfix));
  EXPECT_GT(major, 0);
  EXPECT_GE(minor, 0);
  EXPECT_GE(bugfix, 0);
}

}  // namespace
