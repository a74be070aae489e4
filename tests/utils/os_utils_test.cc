#include "utils/os_utils.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>
#include <limits>
#include <string>

namespace {

using TarnUtils::OSUtils;

std::string NameOf(const OSUtils::OSVersion& version) {
  std::string name = "before";
  EXPECT_TRUE(OSUtils::GetCurrentOSName(version, name));
  return name;
}

std::string TextOf(const OSUtils::OSVersion& version) {
  std::string text = "before";
  EXPECT_TRUE(OSUtils::GetOSVersionStringFromOSVersion(version, text));
  return text;
}

TEST(OSUtilsTest, VersionBeginsSystemRelease) {
  OSUtils::OSVersion version{-1, -1, -1};
  ASSERT_TRUE(OSUtils::GetCurrentOSVersion(version));
  utsname names{};
  ASSERT_EQ(uname(&names), 0);
  const std::string text = std::to_string(version.major) + "." + std::to_string(version.minor);
  EXPECT_EQ(std::string(names.release).rfind(text, 0), 0U) << names.release;
  EXPECT_GE(version.patch, 0);
}

TEST(OSUtilsTest, NameIsMacOSAndNumbers) {
  EXPECT_EQ(NameOf({10, 15, 7}), "Mac OS 10.15.7");
  EXPECT_EQ(NameOf({10, 9, 5}), "Mac OS 10.9.5");
  EXPECT_EQ(NameOf({0, 0, 0}), "Mac OS 0.0.0");
  EXPECT_EQ(NameOf({-1, 0, 12345678901}), "Mac OS -1.0.12345678901");
}

TEST(OSUtilsTest, NameTruncatesNumbersTo31Characters) {
  EXPECT_EQ(NameOf({1234567890, 1234567890, 123456789}), "Mac OS 1234567890.1234567890.123456789");
  EXPECT_EQ(NameOf({1234567890, 1234567890, 1234567890}), "Mac OS 1234567890.1234567890.123456789");
  const long long least = std::numeric_limits<long long>::min();
  EXPECT_EQ(NameOf({least, least, least}), "Mac OS -9223372036854775808.-922337203");
}

TEST(OSUtilsTest, VersionTextIsNumbers) {
  EXPECT_EQ(TextOf({10, 15, 7}), "10.15.7");
  EXPECT_EQ(TextOf({10, 9, 5}), "10.9.5");
  EXPECT_EQ(TextOf({0, 0, 0}), "0.0.0");
}

TEST(OSUtilsTest, VersionTextIsNeverTruncated) {
  const long long least = std::numeric_limits<long long>::min();
  EXPECT_EQ(TextOf({least, least, least}),
            "-9223372036854775808.-9223372036854775808.-9223372036854775808");
}

TEST(OSUtilsTest, VersionNumbersHave64Bits) {
  EXPECT_EQ(sizeof(OSUtils::OSVersion), 3 * 8U);
  const OSUtils::OSVersion version{1, 2, 3};
  EXPECT_EQ(version.major, 1);
  EXPECT_EQ(version.minor, 2);
  EXPECT_EQ(version.patch, 3);
}

TEST(OSUtilsTest, BitnessIsNumberOfBits) {
  EXPECT_EQ(static_cast<int>(OSUtils::Bits32), 32);
  EXPECT_EQ(static_cast<int>(OSUtils::Bits64), 64);
  EXPECT_EQ(sizeof(OSUtils::OSBitness), 4U);
}

TEST(OSUtilsTest, BitnessFollowsMachine) {
  OSUtils::OSBitness bitness{};
  ASSERT_TRUE(OSUtils::GetCurrentOSBitness(bitness));
  utsname names{};
  ASSERT_EQ(uname(&names), 0);
  EXPECT_EQ(bitness, std::string(names.machine) == "i386" ? 32 : 64) << names.machine;
}

}  // namespace
