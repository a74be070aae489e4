// The documented behavior of the example browser.

#include <gtest/gtest.h>
#include <algorithm>
#include <csignal>
#include <fstream>

#include "tests/e2e/picture.h"
#include "tests/e2e/suite_host_run.h"
#include "tests/support/addresses.h"

namespace {

TEST(SuiteHostTest, EventsReportRunInOrder) {
  SuiteHostRun run("host_commands.html");
  EXPECT_EQ(run.Finish(), 42);
  const std::string url = FileUrl(E2E_PAGES "/host_commands.html");
  EXPECT_EQ(run.WaitFor([](const auto& event) { return event["event"] == "load"; }),
            (nlohmann::json{{"event", "load"}, {"browser", 1}, {"url", url}, {"status", 0}}));
  EXPECT_EQ(run.WaitFor([](const auto& event) { return event["event"] == "console"; }),
            (nlohmann::json{{"event", "console"},
                            {"browser", 1},
                            {"text", "text for the console"},
                            {"file", url},
                            {"line", 5}}));
  EXPECT_EQ(
      run.WaitForMessage("hostile"),
      (nlohmann::json{{"event", "message"}, {"browser", 1}, {"name", "hostile"}, {"args", {1.5}}}));
  EXPECT_EQ(run.events().back(), (nlohmann::json{{"event", "quit"}, {"code", 42}}));
}

TEST(SuiteHostTest, TimeoutEndsWithStatusThree) {
  for (const char* page : {"waiting.html", "busy.html"}) {
    SuiteHostRun run(page, {"--timeout=1"});
    EXPECT_EQ(run.Finish(), 3) << page;
    EXPECT_EQ(run.events().back().dump(), R"({"code":3,"event":"quit"})");
  }
}

TEST(SuiteHostTest, KilledRendererEndsRunWithStatusFour) {
  SuiteHostRun run("waiting.html");
  ASSERT_FALSE(run.WaitForMessage("waiting").is_null());
  const auto children = run.Children();
  ASSERT_EQ(children.count("renderer"), 1U);
  kill(children.find("renderer")->second, SIGKILL);
  EXPECT_EQ(run.Finish(), 4);
  EXPECT_EQ(run.WaitFor([](const auto& event) { return event["event"] == "gone"; }).dump(),
            R"({"browser":1,"event":"gone","status":1})");
}

TEST(SuiteHostTest, RunEndsWithStatusZeroWhenLastPageClosesItself) {
  SuiteHostRun run("closes_itself.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.events().back().dump(), R"({"code":0,"event":"quit"})");
}

// The result does not depend on whether the renderer or the other browser ends first.
TEST(SuiteHostTest, RunEndsWithStatusFourWhenOnlyDeadRendererRemains) {
  SuiteHostRun run("closes_itself.html?crash");
  EXPECT_EQ(run.Finish(), 4);
  EXPECT_EQ(run.Count("gone"), 1);
}

TEST(SuiteHostTest, BrowsersOpenedAtEndDoNotDelayIt) {
  SuiteHostRun run("opens_and_quits.html");
  EXPECT_EQ(run.Finish(), 5);
  EXPECT_EQ(run.Count("quit"), 1);
}

TEST(SuiteHostTest, PopupMayCloseWhileAnotherIsOpen) {
  SuiteHostRun run("popups.html");
  EXPECT_EQ(run.Finish(), 7);
  EXPECT_EQ(run.Messages("closing").size(), 1U);
}

TEST(SuiteHostTest, MissingPageIsReportedAsOneLoadWithNetworkError) {
  const TemporaryFolder folder;
  const std::string signal = folder.path() + "/signal.js";
  SuiteHostRun run("missing_page.html?" + signal);
  const auto of_the_second = [](const auto& event) {
    return event["event"] == "load" && event["browser"] == 2;
  };
  constexpr int kFileNotFound = -6;
  EXPECT_EQ(run.WaitFor(of_the_second),
            (nlohmann::json{{"event", "load"},
                            {"browser", 2},
                            {"url", FileUrl(E2E_PAGES "/no-such-page.html")},
                            {"status", kFileNotFound}}));
  std::ofstream(signal) << "'use strict';\n";
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(std::count_if(run.events().begin(), run.events().end(), of_the_second), 1)
      << "the page that Chromium shows instead is not reported";
}

TEST(SuiteHostTest, ScreenshotShowsPageInItsSize) {
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/picture.png";
  SuiteHostRun run("colored.html", {"--size=320x200", "--screenshot=" + path});
  EXPECT_EQ(run.Finish(), 0);
  const Picture picture(path);
  EXPECT_EQ(picture.width(), 320U);
  EXPECT_EQ(picture.height(), 200U);
  EXPECT_EQ(picture.ColorAt(10, 100), (Picture::Color{0xfe, 0x80, 0x40}));
  EXPECT_EQ(picture.ColorAt(310, 100), (Picture::Color{0x12, 0x34, 0x56}));
}

TEST(SuiteHostTest, TimeoutOfZeroIsNoLimit) {
  SuiteHostRun run("host_commands.html", {"--timeout=0"});
  EXPECT_EQ(run.Finish(), 42);
}

}  // namespace
