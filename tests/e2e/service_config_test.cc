// The switches that every process of a real Chromium gets from the service configuration.

#include <gmock/gmock.h>
#include <sched.h>
#include <set>

#include "support/files.h"
#include "support/namespaces.h"
#include "tests/e2e/suite_host_run.h"
#include "tests/support/addresses.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::EndsWith;
using testing::StartsWith;

constexpr char kServers[] = "*.example.com, intranet";

class ServiceConfigTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!CanUnshare(CLONE_NEWNS)) {
      GTEST_SKIP() << "this system does not allow a process to have its own /Library";
    }
  }

  // Runs a page that requires a renderer, a GPU process and a utility process. Returns the line
  // that each process wrote about its switches.
  std::vector<std::string> Run(const std::string& configuration) const {
    const std::string file = folder_.path() + "/config.xml";
    WriteFile(file, configuration);
    SuiteHostRun run(
        "processes.html",
        {"--helper=" PROBE_HELPER, "--switch=proxy-pac-url=" + FileUrl(E2E_PAGES "/proxy.pac")},
        {nullptr, "", file});
    EXPECT_FALSE(run.WaitForMessage("running").is_null());
    std::vector<std::string> lines;
    for (std::set<std::string> types; types.size() < 3;) {
      if (run.Children().empty()) {
        ADD_FAILURE() << "the browser ended, after " << types.size() << " kinds";
        break;
      }
      lines = ReadLines(run.home() + "/switches");
      for (const std::string& line : lines)
        types.insert(line.substr(0, line.find(' ')));
    }
    run.Kill();
    return lines;
  }

  const TemporaryFolder folder_;
};

TEST_F(ServiceConfigTest, EveryProcessGetsBothLists) {
  const std::vector<std::string> lines =
      Run(std::string("<config><CEF><AuthServerWhitelist>") + kServers +
          "</AuthServerWhitelist><AuthNegotiateDelegateWhitelist> </AuthNegotiateDelegateWhitelist>"
          "</CEF></config>");
  EXPECT_THAT(lines, Each(EndsWith(std::string(" auth-server-whitelist=[") + kServers +
                                   "] auth-negotiate-delegate-whitelist=[ ]")));
  for (const char* const type : {"renderer ", "gpu-process ", "utility "})
    EXPECT_THAT(lines, Contains(StartsWith(type)));
}

TEST_F(ServiceConfigTest, InvalidConfigurationSetsNoSwitches) {
  EXPECT_THAT(Run("<config><CEF>"), Each(testing::AnyOf("renderer", "gpu-process", "utility")));
}

}  // namespace
