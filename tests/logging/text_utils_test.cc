#include "logging/text_utils.h"

#include <gtest/gtest.h>
#include <cstdarg>

namespace {

__attribute__((format(printf, 3, 4))) int Format(char* buffer, unsigned long size,
                                                 const char* format, ...) {
  va_list args;
  va_start(args, format);
  const int result = tarn::getLogMessage(buffer, size, format, args);
  va_end(args);
  return result;
}

TEST(LogMessageTest, KeepsLastByteOfBufferUnused) {
  char buffer[8] = "#######";
  EXPECT_EQ(Format(buffer, sizeof buffer, "%s", "0123456789"), 10);
  EXPECT_EQ(std::string(buffer, sizeof buffer), std::string("012345\0\0", 8));
}

TEST(LogMessageTest, DoesNothingWithoutArgumentsOrBuffer) {
  char buffer[8] = "before";
  EXPECT_EQ(tarn::getLogMessage(buffer, sizeof buffer, "text", nullptr), 0);
  EXPECT_EQ(Format(buffer, 0, "%d", 1), 0);
  EXPECT_STREQ(buffer, "before");
}

TEST(NumberTest, ConvertsIntToDecimal) {
  EXPECT_EQ(tarn::getStringFromInt(0), "0");
  EXPECT_EQ(tarn::getStringFromInt(-2147483647 - 1), "-2147483648");
}

}  // namespace
