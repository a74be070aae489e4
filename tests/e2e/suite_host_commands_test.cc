// Commands of pages that the example browser rejects, and lists that commands may omit.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/e2e/suite_host_run.h"

namespace {

using testing::ElementsAre;
using testing::StartsWith;

TEST(SuiteHostCommands, ErrorNamesExpectedArguments) {
  SuiteHostRun run("host_commands.html");
  EXPECT_EQ(run.Finish(), 42);
  EXPECT_THAT(
      run.Errors(),
      ElementsAre("host.quit: expected [code: an int from 0 to 255]",
                  "host.quit: expected [code: an int from 0 to 255]",
                  "host.quit: expected [code: an int from 0 to 255]",
                  "host.load: expected [url: a string that is not empty]",
                  "host.back: expected no arguments",
                  "host.send: expected [name: a string that is not empty; list: a list, may be "
                  "missing]",
                  "host.send: expected [name: a string that is not empty; list: a list, may be "
                  "missing]",
                  "host.resend: there is no browser 99, only 1",
                  "host.dance: there is no such command, only host.back, host.forward, host.load, "
                  "host.open, host.quit, host.reload, host.resend, host.send, host.sendKinds"));
}

TEST(SuiteHostCommands, PageReceivesErrorOfRejectedCommand) {
  SuiteHostRun run("host_commands.html");
  EXPECT_EQ(run.Finish(), 42);
  const auto refused = run.Messages("refused");
  ASSERT_EQ(refused.size(), run.Errors().size());
  for (std::size_t i = 0; i < refused.size(); ++i) {
    EXPECT_EQ(refused[i][0].get<std::string>() + ": " + refused[i][1].get<std::string>(),
              run.Errors()[i]);
  }
}

TEST(SuiteHostCommands, EmptyNamesAndUrlsAreRejected) {
  SuiteHostRun run("empty_strings.html");
  EXPECT_EQ(run.Finish(), 42);
  EXPECT_THAT(run.Errors(), ElementsAre(StartsWith("host.send: "), StartsWith("host.sendKinds: "),
                                        StartsWith("host.resend: "), StartsWith("host.load: "),
                                        StartsWith("host.open: ")));
}

TEST(SuiteHostCommands, MissingListIsEmpty) {
  SuiteHostRun run("missing_lists.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(nlohmann::json(run.Messages("got")).dump(), "[[0],[0],[0],[0]]");
  EXPECT_THAT(run.Errors(), ElementsAre());
}

}  // namespace
