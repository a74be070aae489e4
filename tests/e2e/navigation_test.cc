#include <gtest/gtest.h>

#include "tests/e2e/suite_host_run.h"

namespace {

TEST(NavigationTest, LinksFormsAndReloadsWorkButHistoryDoesNot) {
  SuiteHostRun run("history.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(nlohmann::json(run.Messages("step")).dump(),
            R"([["start",""],["link","?a"],["form","?q=form"],["reloaded","?q=form"],)"
            R"(["reloadedByHost","?q=form"],["end","?last"]])");
  EXPECT_EQ(run.Message("stays").dump(), "[true,3]");
}

TEST(NavigationTest, ForwardNavigationToOtherDocumentIsBlocked) {
  SuiteHostRun run("forward.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("stays").dump(), R"(["?second","",2])");
}

TEST(NavigationTest, HistoryNavigationOfFramesIsBlocked) {
  SuiteHostRun run("frame_history.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("entries").dump(), "[2]");
  EXPECT_EQ(nlohmann::json(run.Messages("visited")).dump(), R"([["?first"],["?second"]])");
}

TEST(NavigationTest, HistoryNavigationWithinPageWorks) {
  SuiteHostRun run("history.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("popstate").dump(), R"(["#within"])");
}

}  // namespace
