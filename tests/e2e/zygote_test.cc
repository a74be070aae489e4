// Renderers that a real Chromium forks from a zygote instead of starting a helper for each.

#include <gmock/gmock.h>
#include <filesystem>
#include <sstream>

#include "support/files.h"
#include "tests/e2e/suite_host_run.h"
#include "tests/e2e/traced_helper.h"
#include "tests/support/addresses.h"
#include "tests/support/banners.h"
#include "tests/support/session_bus.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// Returns the running processes that `zygote` has forked, oldest first. Their command lines do not
// always contain their type.
std::vector<pid_t> ForkedBy(pid_t zygote) {
  const std::string id = std::to_string(zygote);
  std::vector<pid_t> forked;
  std::istringstream children(ReadFile("/proc/" + id + "/task/" + id + "/children"));
  for (pid_t child = 0; children >> child;) {
    // A process that has ended, and that its parent has not waited for, has no command line.
    if (!ReadFile("/proc/" + std::to_string(child) + "/cmdline").empty()) forked.push_back(child);
  }
  return forked;
}

// Matches a line that has the process in the session and thread columns and ends with `text`.
auto LineOf(pid_t process, const std::string& text) {
  const std::string id = std::to_string(process);
  return AllOf(HasSubstr("] | " + id + " | HXPL | "), HasSubstr(" | " + id + " | "),
               EndsWith(text));
}

bool Runs(pid_t process) { return std::filesystem::exists("/proc/" + std::to_string(process)); }

class ZygoteTest : public testing::Test {
 protected:
  static pid_t ZygoteOf(const SuiteHostRun& run) {
    const auto children = run.Children();
    EXPECT_EQ(children.count("zygote"), 1U);
    EXPECT_EQ(children.count("renderer"), 0U);
    return children.count("zygote") == 1 ? children.find("zygote")->second : -1;
  }

  // Creates the file that the page waits for.
  void Continue() const { WriteFile(signal_, "'use strict';\n"); }

  const TemporaryFolder folder_;
  const std::string signal_ = folder_.path() + "/signal.js";
  SessionBus bus_;
};

TEST_F(ZygoteTest, RendererHasItsOwnLinesAndBusConnection) {
  SuiteHostRun run("answering.html?" + signal_, {"--zygote", "--timeout=120"},
                   {nullptr, bus_.address()});
  ASSERT_FALSE(run.WaitForMessage("answering").is_null());
  const pid_t zygote = ZygoteOf(run);
  const std::vector<pid_t> forked = ForkedBy(zygote);
  ASSERT_EQ(forked.size(), 1U);
  const pid_t renderer = forked[0];
  bus_.WaitForObservers(1);
  Continue();
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Count("gone"), 0);
  EXPECT_EQ(bus_.observers(), 1);
  EXPECT_THAT(
      run.LogLines(),
      ElementsAre(LineOf(zygote, kStartBanner), LineOf(zygote, "other forked processes have none"),
                  LineOf(zygote, kEndBanner), LineOf(renderer, kStartBanner)));
}

TEST_F(ZygoteTest, RendererLogsMissingBusWithItsOwnProcessIdentifier) {
  const SuiteHostRun::Environment environment{[](const std::string& home) {
    std::filesystem::create_directories(home + "/Library/Logs");
    WriteFile(home + "/Library/Logs/TARN.debug", "");
  }};
  SuiteHostRun run("answering.html?" + signal_, {"--zygote", "--timeout=120"}, environment);
  ASSERT_FALSE(run.WaitForMessage("answering").is_null());
  const std::vector<pid_t> forked = ForkedBy(ZygoteOf(run));
  ASSERT_EQ(forked.size(), 1U);
  const pid_t renderer = forked[0];
  Continue();
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_THAT(run.LogLines(), Contains(LineOf(renderer,
                                              "the session bus is out of reach: No such file or "
                                              "directory")));
}

TEST_F(ZygoteTest, FullRendererEndsWithStatusOneAndOthersContinue) {
  SuiteHostRun run("survivor.html?" + signal_ + "#memory.html?typed,memory.html",
                   {"--zygote", "--helper=" + WriteTracedHelper(folder_.path()), "--timeout=120"},
                   {nullptr, bus_.address()});
  ASSERT_FALSE(run.WaitForMessage("filled").is_null());
  const pid_t zygote = ZygoteOf(run);
  const std::vector<pid_t> before = ForkedBy(zygote);
  ASSERT_EQ(before.size(), 2U);
  bus_.WaitForObservers(2);
  bus_.SendRefresh();
  const auto gone = run.WaitFor([](const auto& event) { return event["event"] == "gone"; });
  ASSERT_FALSE(gone.is_null());
  EXPECT_EQ(gone["browser"], 2);
  EXPECT_EQ(gone["status"], 0);
  bus_.WaitForAnalytics(1);
  EXPECT_EQ(ZygoteOf(run), zygote);
  EXPECT_THAT(ForkedBy(zygote), ElementsAre(before[0]));
  Continue();
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("echoed").dump(), R"(["survived"])");
  EXPECT_EQ(run.Count("gone"), 1);

  const pid_t full = before[1];
  EXPECT_THAT(ReadLines(folder_.path() + "/" + std::to_string(zygote) + ".trace"),
              Contains(HasSubstr("exit_group(1)")).Times(1));
  const std::vector<std::string> lines = run.LogLines();
  EXPECT_THAT(lines,
              Contains(AllOf(HasSubstr("[WARN]"), LineOf(full, " MB. Quitting !!"))).Times(1));
  EXPECT_THAT(lines, Contains(LineOf(full, kEndBanner)).Times(1));
  EXPECT_THAT(lines, Contains(EndsWith(kStartBanner)).Times(4));  // the zygote and three renderers
}

TEST_F(ZygoteTest, SmallRendererAnswersItsPageDuringFloodOfRefreshes) {
  SuiteHostRun run("answering.html?" + signal_, {"--zygote", "--timeout=120"},
                   {nullptr, bus_.address()});
  ASSERT_FALSE(run.WaitForMessage("answering").is_null());
  bus_.WaitForObservers(1);
  bus_.SendRefresh(10000);
  const RefreshFlood flood(bus_);
  Continue();  // the page ends after ten more answers
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Count("gone"), 0);
}

TEST_F(ZygoteTest, RefreshesDuringStartDoNoHarm) {
  const RefreshFlood flood(bus_);
  for (int i = 0; i < 3; ++i) {
    SuiteHostRun run("goodbye.html", {"--zygote"}, {nullptr, bus_.address()});
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.Message("echoed").dump(), R"(["still here"])");
    EXPECT_EQ(run.Count("gone"), 0);
  }
}

TEST_F(ZygoteTest, EndsWithBrowser) {
  pid_t zygote = -1;
  pid_t renderer = -1;
  {
    SuiteHostRun run("waiting.html", {"--zygote"});
    ASSERT_FALSE(run.WaitForMessage("waiting").is_null());
    zygote = ZygoteOf(run);
    const std::vector<pid_t> forked = ForkedBy(zygote);
    ASSERT_EQ(forked.size(), 1U);
    renderer = forked[0];
    EXPECT_TRUE(Runs(zygote));
    run.Kill();
  }  // waits for the processes
  EXPECT_FALSE(Runs(zygote));
  EXPECT_FALSE(Runs(renderer));
}

TEST_F(ZygoteTest, ForkedUtilityProcessLogsNothing) {
  SuiteHostRun run("processes.html",
                   {"--zygote", "--switch=proxy-pac-url=" + FileUrl(E2E_PAGES "/proxy.pac")});
  ASSERT_FALSE(run.WaitForMessage("running").is_null());
  const pid_t zygote = ZygoteOf(run);
  std::vector<pid_t> forked;
  // The browser's own timeout ends the wait.
  while (forked.size() < 2 && !run.Children().empty())
    forked = ForkedBy(zygote);
  ASSERT_EQ(forked.size(), 2U);
  run.Kill();
  run.Finish();
  const std::vector<std::string> lines = run.LogLines();
  EXPECT_THAT(lines, Contains(LineOf(forked[0], kStartBanner)));
  EXPECT_THAT(lines, Not(Contains(HasSubstr(" | " + std::to_string(forked[1]) + " | "))));
}

TEST_F(ZygoteTest, RendererHasSwitchesOfBrowserAlone) {
  for (const bool given : {false, true}) {
    std::vector<std::string> options = {"--zygote", "--helper=" PROBE_HELPER};
    if (given) options.emplace_back("--switch=disable-pinch");
    SuiteHostRun run("switches.html", options);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(nlohmann::json(run.Messages("probe.switch")).dump(),
              given ? "[[true],[false]]" : "[[false],[false]]");
  }
}

}  // namespace
