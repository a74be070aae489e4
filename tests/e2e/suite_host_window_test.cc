// Pages in windows of the display.

#include <gtest/gtest.h>

#include "tests/e2e/display_windows.h"
#include "tests/e2e/suite_host_run.h"

namespace {

// Counts the windows of a page and its popup that have the size of the options.
int CountWindowsOfRun(const std::vector<std::string>& options) {
  SuiteHostRun run("input.html", options);
  EXPECT_FALSE(run.WaitForMessage("ready").is_null());
  run.Write(R"({"send": "popup"})");
  EXPECT_FALSE(run.WaitFor([](const auto& event) {
                    return event["event"] == "message" && event["browser"] == 2;
                  })
                   .is_null());
  const int count = CountWindows(Display(), 320, 200);
  run.Write(R"({"quit": 6})");
  EXPECT_EQ(run.Finish(), 6);
  return count;
}

TEST(SuiteHostWindow, IsOneOfTheDisplayInItsSize) {
  EXPECT_EQ(CountWindowsOfRun({"--stdin", "--size=320x200", "--window"}), 2);
}

TEST(SuiteHostWindow, IsMissingOffScreen) {
  EXPECT_EQ(CountWindowsOfRun({"--stdin", "--size=320x200"}), 0);
}

}  // namespace
