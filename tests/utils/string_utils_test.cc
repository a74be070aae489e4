#include "utils/string_utils.h"

#include <gtest/gtest.h>

namespace {

using TarnUtils::StringUtils;

TEST(StringUtilsTest, LongBecomesDecimalText) {
  std::string text = "before";
  EXPECT_TRUE(StringUtils::LongToNativeString(-9223372036854775807 - 1, text));
  EXPECT_EQ(text, "-9223372036854775808");
  EXPECT_TRUE(StringUtils::LongToNativeString(9223372036854775807, text));
  EXPECT_EQ(text, "9223372036854775807");
  EXPECT_TRUE(StringUtils::LongToNativeString(0, text));
  EXPECT_EQ(text, "0");
}

TEST(StringUtilsTest, IntBecomesDecimalText) {
  EXPECT_EQ(StringUtils::IntToNativeString(0), "0");
  EXPECT_EQ(StringUtils::IntToNativeString(2147483647), "2147483647");
  EXPECT_EQ(StringUtils::IntToNativeString(-2147483647 - 1), "-2147483648");
}

}  // namespace
