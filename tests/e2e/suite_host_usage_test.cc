// Command lines with which the example browser shows no page.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/e2e/host_output.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

struct WrongUsage {
  std::vector<std::string> arguments;
  std::string error;
};

// Describes the parameter in GoogleTest's output.
void PrintTo(const WrongUsage& usage, std::ostream* stream) { *stream << usage.error; }

class WrongUsageTest : public testing::TestWithParam<WrongUsage> {};

TEST_P(WrongUsageTest, EndsWithStatusTwoAndOneLine) {
  const HostOutput output = RunHost(SUITE_HOST, GetParam().arguments);
  EXPECT_THAT(output.lines, ElementsAre(StartsWith("suite_host: " + GetParam().error)));
  EXPECT_EQ(output.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, WrongUsageTest,
    testing::Values(WrongUsage{{}, "usage: "},
                    WrongUsage{{"no-such-page.html"}, "there is no page "},
                    WrongUsage{{"/dev/null", "/dev/null"}, "more than one PAGE"},
                    WrongUsage{{"--timeout=-1", "/dev/null"}, "cannot use --timeout=-1"},
                    WrongUsage{{"--timeout=1s", "/dev/null"}, "cannot use --timeout=1s"},
                    WrongUsage{{"--size=800", "/dev/null"}, "cannot use --size=800"},
                    WrongUsage{{"--size=0x600", "/dev/null"}, "cannot use --size=0x600"},
                    WrongUsage{{"--helper=/nonexistent", "/dev/null"}, "cannot use --helper="},
                    WrongUsage{{"--switch=", "/dev/null"}, "cannot use --switch="},
                    WrongUsage{{"--screenshot=", "/dev/null"}, "cannot use --screenshot="},
                    WrongUsage{{"--screenshot=/nonexistent/a.png", "/dev/null"},
                               "cannot use --screenshot=/nonexistent/a.png"},
                    WrongUsage{{"--devtools=1023", "/dev/null"}, "cannot use --devtools=1023"},
                    WrongUsage{{"--devtools=65536", "/dev/null"}, "cannot use --devtools=65536"},
                    WrongUsage{{"--devtools", "/dev/null"}, "unknown option --devtools"},
                    WrongUsage{{"--stdin=1", "/dev/null"}, "unknown option --stdin=1"},
                    WrongUsage{{"--window", "--screenshot=/dev/null", "/dev/null"},
                               "--screenshot needs a view that is off-screen"},
                    WrongUsage{{"--unknown", "/dev/null"}, "unknown option --unknown"}));

TEST(SuiteHostUsage, HelpDescribesOptions) {
  const HostOutput output = RunHost(SUITE_HOST, {"--help"});
  EXPECT_EQ(output.status, 0);
  EXPECT_THAT(output.lines[0], StartsWith("usage: suite_host [--helper=PATH] "));
  EXPECT_THAT(output.lines, Contains(StartsWith("  --timeout=SECONDS        end the run ")));
  EXPECT_THAT(output.lines, Contains(StartsWith("  --version  ")));
}

TEST(SuiteHostUsage, VersionIsProjectVersion) {
  const HostOutput output = RunHost(SUITE_HOST, {"--version"});
  EXPECT_EQ(output.status, 0);
  EXPECT_THAT(output.lines, ElementsAre("suite_host " PROJECT_VERSION));
}

TEST(SuiteHostUsage, MissingDisplayIsReported) {
  const HostOutput output = RunHost(SUITE_HOST, {"/dev/null"});
  EXPECT_THAT(output.lines, ElementsAre(StartsWith("suite_host: cannot open the X display")));
  EXPECT_EQ(output.status, 1);
}

}  // namespace
