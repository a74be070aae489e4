#include "utils/os_utils.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>
#include <string>

namespace {

TEST(OSUtilsTest, VersionBeginsTheReleaseOfTheSystem) {
  TarnUtils::OSUtils::OSVersion version{-1, -1, -1};
  ASSERT_TRUE(TarnUtils::OSUtils::GetCurrentOSVersion(version));
  utsname names{};
  ASSERT_EQ(uname(&names), 0);
  const std::string text = std::to_string(version.major) + "." + std::to_string(version.minor);
  EXPECT_EQ(std::string(names.release).rfind(text, 0), 0U) << names.release;
  EXPECT_GE(version.patch, 0);
}

}  // namespace
