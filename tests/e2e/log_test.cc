// The helper's log after a run of a real Chromium, or of the helper alone.

#include <gmock/gmock.h>
#include <algorithm>
#include <filesystem>
#include <regex>

#include "support/files.h"
#include "tests/e2e/suite_host_run.h"
#include "tests/support/addresses.h"
#include "tests/support/child_process.h"
#include "tests/support/lock_objects.h"
#include "tests/support/test_home.h"

namespace {

using testing::EndsWith;
using testing::IsEmpty;

std::string Banner(pid_t process, const std::string& text) {
  const std::string id = std::to_string(process);
  return " | [INFO] | " + id + " | HXPL | HexHelper | ApplicationContext |  | HexHelper | " + id +
         " | ************************* " + text + " *************************";
}

std::string Start(pid_t process) { return Banner(process, "START Velmora CEF Helper"); }
std::string End(pid_t process) {
  return Banner(process, "END Velmora CEF Helper. Version: 4.3.0.256");
}

// Returns the lines without their time columns. The test fails when a time is malformed.
std::vector<std::string> WithoutTimes(const std::vector<std::string>& lines) {
  static const std::regex time("[0-9]{2}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}:[0-9]{3}");
  std::vector<std::string> rest;
  for (const std::string& line : lines) {
    const std::size_t end = std::min(line.find(" | "), line.size());
    EXPECT_TRUE(std::regex_match(line.substr(0, end), time)) << line;
    rest.push_back(line.substr(end));
  }
  return rest;
}

bool Contains(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST(LogTest, EveryChildExceptGpuProcessLogsItsStart) {
  SuiteHostRun run("processes.html", {"--switch=proxy-pac-url=" + FileUrl(E2E_PAGES "/proxy.pac")});
  ASSERT_FALSE(run.WaitForMessage("running").is_null());
  std::map<std::string, pid_t> seen;
  while (seen.size() < 3) {
    const auto children = run.Children();
    ASSERT_FALSE(children.empty()) << "the browser ended, after " << seen.size() << " kinds";
    seen.insert(children.begin(), children.end());
  }
  // A process can be visible before it has logged its start.
  for (const char* const kind : {"renderer", "utility"}) {
    ASSERT_EQ(seen.count(kind), 1U) << kind;
    while (!Contains(WithoutTimes(run.LogLines()), Start(seen[kind]))) {
      ASSERT_FALSE(run.Children().empty()) << "no line of the " << kind;
    }
  }
  const std::string gpu = " | " + std::to_string(seen["gpu-process"]) + " | ";
  for (const std::string& line : run.LogLines())
    EXPECT_EQ(line.find(gpu), std::string::npos) << line;
  run.Kill();
}

TEST(LogTest, PageRunsWhenLogPathIsFolder) {
  const auto prepare = [](const std::string& home) {
    std::filesystem::create_directories(home + "/Library/Logs/Cirrane/CRN/CRN.log");
  };
  SuiteHostRun run("switches.html", {}, {prepare});
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Count("gone"), 0);
  EXPECT_THAT(run.LogLines(), IsEmpty());
}

TEST(LogTest, PageRunsWhenLogFolderCannotBeCreated) {
  const auto prepare = [](const std::string& home) { WriteFile(home + "/Library", ""); };
  SuiteHostRun run("switches.html", {}, {prepare});
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Count("gone"), 0);
}

// Runs the helper without a browser, with command lines that Chromium does not treat as those of a
// child process.
class DirectLogTest : public testing::Test {
 protected:
  // Runs the helper, by way of the program `through` if given, until it ends. Returns its process
  // identifier.
  pid_t Run(const std::vector<std::string>& arguments,
            const std::vector<std::string>& through = {}) const {
    std::vector<std::string> command = {OWN_ROOT, root_.path(), "-"};
    command.insert(command.end(), through.begin(), through.end());
    command.emplace_back(HEX_HELPER);
    command.insert(command.end(), arguments.begin(), arguments.end());
    ChildProcess helper(command, {{}, home_.path() + "/stderr"});
    EXPECT_EQ(helper.Wait(), 0);
    return helper.pid();
  }

  std::vector<std::string> Lines() const { return WithoutTimes(ReadLines(home_.helper_log())); }

  const TestHome home_;
  const TemporaryFolder root_;
};

TEST_F(DirectLogTest, RunBeginsWithStartAndEndsWithEnd) {
  const pid_t first = Run({});
  const pid_t second = Run({"--type="});
  const pid_t third = Run({"--type=gpu-process2"});
  EXPECT_EQ(Lines(), (std::vector<std::string>{Start(first), End(first), Start(second), End(second),
                                               Start(third), End(third)}));
}

TEST_F(DirectLogTest, LargeLogIsCopiedAndRestarted) {
  Run({});
  const std::string before(10 << 20, '\n');
  WriteFile(home_.helper_log(), before);
  const pid_t helper = Run({});
  const std::vector<std::string> lines = Lines();
  ASSERT_EQ(lines.size(), 8U);  // the header has six
  EXPECT_THAT(lines[0], EndsWith(" | " + std::string(78, '*')));
  EXPECT_EQ(lines[6], Start(helper));
  EXPECT_EQ(lines[7], End(helper));
  std::vector<std::string> copies;
  const auto folder = std::filesystem::path(home_.helper_log()).parent_path();
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path() != home_.helper_log()) copies.push_back(entry.path());
  }
  ASSERT_EQ(copies.size(), 1U);
  EXPECT_THAT(copies[0], testing::MatchesRegex(".*/CRN 20..-..-.. ..-..-..\\.log"));
  EXPECT_TRUE(ReadFile(copies[0]) == before);
}

TEST_F(DirectLogTest, GpuProcessHasNoLog) {
  ChildProcess helper({OWN_ROOT, root_.path(), "-", HEX_HELPER, "--type=gpu-process"},
                      {{}, home_.path() + "/stderr"});
  helper.Wait();  // without a browser, Chromium ends the process with a signal
  EXPECT_FALSE(std::filesystem::exists(home_.path() + "/Library"));
}

TEST_F(DirectLogTest, LogLeavesNoLockObjects) {
  Run({});
  EXPECT_TRUE(LockObjects(home_.helper_log(), LockObjects::Keep{}).gone());
}

// Makes system calls of the helper fail, always or only the first times.
class DirectFaultTest : public DirectLogTest, public testing::WithParamInterface<const char*> {};

TEST_P(DirectFaultTest, HelperSucceeds) {
  Run({},
      {"strace", "-f", "-o", home_.path() + "/trace", "-e", std::string("inject=") + GetParam()});
  if (std::filesystem::exists(home_.helper_log())) {
    LockObjects(home_.helper_log(), LockObjects::Keep{}).Remove();
  }
}

INSTANTIATE_TEST_SUITE_P(SystemCalls, DirectFaultTest,
                         testing::Values("semget:error=ENOSPC", "semget:error=EACCES",
                                         "semctl:error=EPERM", "semctl:error=EIDRM",
                                         "semtimedop:error=EACCES", "semtimedop:error=ENOMEM",
                                         "semtimedop:error=EIDRM",
                                         "semtimedop:error=EINTR:when=1..9", "shmget:error=ENOSPC",
                                         "shmat:error=ENOMEM", "mkdir:error=EROFS",
                                         "chmod:error=EPERM", "uname:error=EFAULT"));

}  // namespace
