// Pages in windows on the display.

#include <gtest/gtest.h>

#include "tests/e2e/display_windows.h"
#include "tests/e2e/suite_host_run.h"

namespace {

// Opens a page and its popup. Returns the number of windows that have the size in the options.
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

TEST(SuiteHostWindow, IsShownOnDisplayInItsSize) {
  EXPECT_EQ(CountWindowsOfRun({"--stdin", "--size=320x200", "--window"}), 2);
}

TEST(SuiteHostWindow, IsAbsentOffScreen) {
  EXPECT_EQ(CountWindowsOfRun({"--stdin", "--size=320x200"}), 0);
}

}  // namespace
