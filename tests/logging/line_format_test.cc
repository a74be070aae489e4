// Compares lines byte by byte.

#include "logging/line_format.h"

#include <gtest/gtest.h>
#include <ctime>

#include "tests/support/test_home.h"

namespace {

std::string Format(const tarn::LogRecord& record, const char* time, const char* thread,
                   const std::string& separator = " | ") {
  std::string line = "from a previous use";
  tarn::FormatLine(record, time, thread, separator, line);
  return line;
}

TEST(LineFormatTest, PutsColumnsInOrder) {
  EXPECT_EQ(Format({0, tarn::TRACE, "4242", "HXPL", "HexHelper", "ApplicationContext", "",
                    "HexHelper", "Finalizing Application context"},
                   "11/15/26 21:05:07:042", "77120"),
            "11/15/26 21:05:07:042 | [TRACE] | 4242 | HXPL | HexHelper | ApplicationContext |  | "
            "HexHelper | 77120 | Finalizing Application context");
}

TEST(LineFormatTest, EmptyColumnKeepsBothSeparators) {
  EXPECT_EQ(Format({0, tarn::INFO, "", "", "", "", "", "", ""}, "", ""),
            " | [INFO] |  |  |  |  |  |  |  | ");
}

TEST(LineFormatTest, NullCountsAsEmpty) {
  EXPECT_EQ(
      Format({0, tarn::INFO, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, {}}, "", ""),
      " | [INFO] |  |  |  |  |  |  |  | ");
}

TEST(LineFormatTest, UsesSeparatorOfTarget) {
  EXPECT_EQ(Format({0, tarn::WARN, "a", "b", "c", "d", "e", "f", "h"}, "t", "g", ";"),
            "t;[WARN];a;b;c;d;e;f;g;h");
}

TEST(LineFormatTest, KeepsTextUnchanged) {
  EXPECT_EQ(Format({0, tarn::FATAL, "%s", "|", "\xc3\xa4", "\t", "%n", "\n", "%d\r\n"}, "t", "1"),
            "t | [FATAL] | %s | | | \xc3\xa4 | \t | %n | \n | 1 | %d\r\n");
}

TEST(LineFormatTest, LevelsHaveTheirNames) {
  const std::pair<int, const char*> names[] = {
      {10, "TRACE"}, {20, "DEBUG"}, {30, "INFO"}, {40, "WARN"}, {50, "ERROR"}, {60, "FATAL"},
      {70, "NONE"},  {0, "ALL"},    {-1, "ALL"},  {35, "ALL"},  {71, "ALL"},   {2147483647, "ALL"}};
  for (const auto& [level, name] : names) {
    EXPECT_STREQ(tarn::LevelName(static_cast<tarn::Log_Level>(level)), name) << level;
  }
}

TEST(LineFormatTest, SecondHasMonthDayAndTwoDigitYear) {
  const ScopedVariable zone("TZ", "UTC");
  tzset();
  EXPECT_EQ(tarn::SecondText(0), "01/01/70 00:00:00");
  EXPECT_EQ(tarn::SecondText(1700000000), "11/14/23 22:13:20");
  EXPECT_EQ(tarn::SecondText(1794776707), "11/15/26 21:05:07");
}

TEST(LineFormatTest, SecondOutsideCalendarIsEmpty) {
  EXPECT_EQ(tarn::SecondText(9223372036854775807), "");
}

}  // namespace
