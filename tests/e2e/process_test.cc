// The processes that Chromium starts, and the helper without a browser.

#include <gtest/gtest.h>
#include <filesystem>
#include <set>

#include "tests/e2e/suite_host_run.h"
#include "tests/support/addresses.h"
#include "tests/support/child_process.h"
#include "tests/support/test_home.h"

namespace {

TEST(ProcessTest, EveryChildProcessRunsHelper) {
  SuiteHostRun run("processes.html", {"--switch=proxy-pac-url=" + FileUrl(E2E_PAGES "/proxy.pac")});
  ASSERT_FALSE(run.WaitForMessage("running").is_null());
  std::set<std::string> missing = {"renderer", "gpu-process", "utility"};
  // The browser's own timeout ends the wait, because the browser then has no children.
  for (auto children = run.Children(); !missing.empty() && !children.empty();
       children = run.Children()) {
    for (const auto& [type, pid] : children) {
      std::error_code gone;
      // Compare files instead of paths: the run has its own root folder.
      const bool is_helper =
          std::filesystem::equivalent("/proc/" + std::to_string(pid) + "/exe", HEX_HELPER, gone);
      if (gone) continue;
      EXPECT_TRUE(is_helper) << type;
      missing.erase(type);
    }
  }
  EXPECT_TRUE(missing.empty()) << *missing.begin() << " did not start";
  run.Kill();
}

TEST(ProcessTest, PinchZoomIsDisabled) {
  SuiteHostRun run("switches.html", {"--helper=" PROBE_HELPER});
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(nlohmann::json(run.Messages("probe.switch")).dump(), "[[true],[false]]");
}

// Command lines that Chromium does not treat as those of a child process. A child process without a
// browser would end within the library.
class DirectRunTest : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(DirectRunTest, EndsWithStatusZero) {
  const TestHome home;
  const TemporaryFolder root;
  std::vector<std::string> command = {OWN_ROOT, root.path(), "-", HEX_HELPER};
  command.insert(command.end(), GetParam().begin(), GetParam().end());
  ChildProcess helper(command, {{}, home.path() + "/stderr"});
  EXPECT_EQ(helper.Wait(), 0);
}

INSTANTIATE_TEST_SUITE_P(CommandLines, DirectRunTest,
                         testing::Values(std::vector<std::string>{},
                                         std::vector<std::string>{"--type=gpu-process2"},
                                         std::vector<std::string>{"--type="},
                                         std::vector<std::string>{"type"},
                                         std::vector<std::string>{"-psn_0_4711", "--=", "%s%n"}));

}  // namespace
