// Arrays that cannot be sent end their renderer and nothing else.

#include <gtest/gtest.h>
#include <fstream>

#include "tests/e2e/suite_host_run.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr int kCrashed = 2;
constexpr int kKilledForBadMessage = 1;

TEST(EndlessArrayTest, CyclicArrayEndsRenderer) {
  SuiteHostRun run("endless.html?cyclic");
  EXPECT_EQ(run.Finish(), 4);
  EXPECT_EQ(run.Messages("sending").size(), 1U);
  EXPECT_TRUE(run.Messages("endless").empty());
  EXPECT_EQ(run.WaitFor([](const auto& event) { return event["event"] == "gone"; }),
            (nlohmann::json{{"event", "gone"}, {"browser", 1}, {"status", kCrashed}}));
}

TEST(EndlessArrayTest, DeeplyNestedArrayEndsRenderer) {
  SuiteHostRun run("endless.html?deep");
  EXPECT_EQ(run.Finish(), 4);
  EXPECT_TRUE(run.Messages("endless").empty());
  EXPECT_EQ(run.WaitFor([](const auto& event) { return event["event"] == "gone"; }),
            (nlohmann::json{{"event", "gone"}, {"browser", 1}, {"status", kKilledForBadMessage}}));
}

TEST(EndlessArrayTest, SameBrowserLoadsNextPage) {
  for (const char* page : {"endless.html?cyclic&next", "endless.html?deep&next"}) {
    SuiteHostRun run(page);
    EXPECT_EQ(run.Finish(), 0) << page;
    EXPECT_EQ(run.Message("echoed").dump(), R"(["still here"])") << page;
  }
}

TEST(EndlessArrayTest, OtherBrowsersContinue) {
  const TemporaryFolder folder;
  const std::string signal = folder.path() + "/signal.js";
  SuiteHostRun run("survivor.html?" + signal + "#endless.html?cyclic,goodbye.html");
  const auto gone = run.WaitFor([](const auto& event) { return event["event"] == "gone"; });
  EXPECT_EQ(gone["browser"], 2);
  std::ofstream(signal) << "'use strict';\n";
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(nlohmann::json(run.Messages("echoed")).dump(), R"([["survived"],["still here"]])");
}

}  // namespace
