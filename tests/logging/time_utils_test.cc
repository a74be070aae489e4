#include "logging/time_utils.h"

#include <gtest/gtest.h>
#include <ctime>

#include "tests/support/test_home.h"

namespace {

std::time_t g_now = 0;  // the result of time(), or 0 for the real time

}  // namespace

// Replaces the C library's function.
extern "C" std::time_t time(std::time_t* __timer) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const std::time_t result = g_now != 0 ? g_now : now.tv_sec;
  if (__timer) *__timer = result;
  return result;
}

namespace {

class TimeUtilsTest : public testing::Test {
 protected:
  TimeUtilsTest() { tzset(); }
  ~TimeUtilsTest() override { g_now = 0; }

  const ScopedVariable zone_{"TZ", "UTC"};
};

constexpr std::time_t kFirstOfMarch2024 = 1709251200;

TEST_F(TimeUtilsTest, DayBeforeFirstOfMarchIsLeapDay) {
  g_now = kFirstOfMarch2024;
  std::string date;
  EXPECT_TRUE(tarn::getOffSetDate(date, -1));
  EXPECT_EQ(date, "2024-02-29");
  EXPECT_TRUE(tarn::getOffSetDate(date, 0));
  EXPECT_EQ(date, "2024-03-01");
  EXPECT_TRUE(tarn::getOffSetDate(date, 31));
  EXPECT_EQ(date, "2024-04-01");
}

TEST_F(TimeUtilsTest, UsesLocalTimeZone) {
  const ScopedVariable zone("TZ", "UTC+5");
  tzset();
  g_now = kFirstOfMarch2024;
  std::string text;
  EXPECT_TRUE(tarn::getOffSetDate(text, 0));
  EXPECT_EQ(text, "2024-02-29");
  EXPECT_TRUE(tarn::getDatetime(text));
  EXPECT_EQ(text, "2024-02-29 19-00-00");
}

TEST_F(TimeUtilsTest, DatetimeIsValidInFileName) {
  g_now = kFirstOfMarch2024 + 3661;
  std::string text;
  EXPECT_TRUE(tarn::getDatetime(text));
  EXPECT_EQ(text, "2024-03-01 01-01-01");
}

TEST_F(TimeUtilsTest, CurrentTimeMatchesClock) {
  const std::time_t before = time(nullptr);
  timeval now{};
  EXPECT_EQ(tarn::getCurrentTime(now), 0);
  EXPECT_GE(now.tv_sec, before);
  EXPECT_LE(now.tv_sec, time(nullptr));
}

}  // namespace
