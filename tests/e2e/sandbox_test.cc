// A real Chromium with its sandbox, as an ordinary user: pages work, and nothing ends by a crash.

#include <gmock/gmock.h>
#include <algorithm>
#include <cstddef>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/files.h"
#include "tests/support/addresses.h"
#include "tests/support/child_process.h"
#include "tests/support/lock_objects.h"
#include "tests/support/session_bus.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_display.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

// The first parameter is the one folder that the program may write to. Chromium makes namespaces of
// its own below, which is not possible in a root folder that was changed.
constexpr char kAsOrdinaryUser[] = R"(
mount --bind "$0" "$0"
mount -o remount,bind,ro /
exec unshare --user --map-user=1000 --map-group=1000 "$@")";

// Chromium's filter of system calls kills threads by those two when a newer C library makes them,
// which falls back to older ones when they are missing.
const std::vector<std::string> kAsOlderSystem = {
    "strace", "-f",
    "-o",     "/dev/null",
    "-e",     "trace=clone3,sched_getaffinity",
    "-e",     "inject=clone3,sched_getaffinity:error=ENOSYS"};

bool HasUserNamespaces() {
  const std::vector<std::string> nested = {
      "unshare",         "--user",           "--map-root-user", "--mount", "unshare", "--user",
      "--map-user=1000", "--map-group=1000", "unshare",         "--user",  "true"};
  return ChildProcess(nested, {{}, "/dev/null"}).Wait() == 0;
}

std::set<pid_t> DescendantsOf(pid_t process) {
  std::set<pid_t> found;
  const std::string id = std::to_string(process);
  std::istringstream children(ReadFile("/proc/" + id + "/task/" + id + "/children"));
  for (pid_t child = 0; children >> child;) {
    found.insert(child);
    found.merge(DescendantsOf(child));
  }
  return found;
}

std::string LineThatBegins(const std::string& beginning, const std::vector<std::string>& lines) {
  for (const std::string& line : lines)
    if (line.rfind(beginning, 0) == 0) return line;
  return {};
}

class SandboxTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!HasUserNamespaces()) {
      GTEST_SKIP()
          << "this system allows ordinary users no namespaces, which Chromium's sandbox is "
             "made of";
    }
  }

  // Starts the example browser, by way of another program if need be.
  void Start(const std::vector<std::string>& through, const std::vector<std::string>& options) {
    std::vector<std::string> command = {"unshare", "--user", "--map-root-user", "--mount",
                                        "sh",      "-ec",    kAsOrdinaryUser,   home_.path()};
    command.insert(command.end(), through.begin(), through.end());
    command.insert(command.end(), {SUITE_HOST, "--sandbox", "--timeout=120"});
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(FileUrl(E2E_PAGES "/answering.html?" + home_.path() + "/signal.js", "?"));
    ChildProcess::Options surroundings;
    surroundings.error_file = home_.path() + "/stderr";
    surroundings.environment = {{"DISPLAY", display_.name()}};
    for (const char* const name : {"HOME", "TMPDIR", "XDG_CACHE_HOME", "XDG_CONFIG_HOME",
                                   "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
      surroundings.environment[name] = home_.path();
    }
    host_ = std::make_unique<ChildProcess>(command, surroundings);
  }

  // Reads events up to a message of that name; null when there is none.
  nlohmann::json WaitForMessage(const std::string& name) {
    for (std::string line; host_->ReadLine(line);) {
      const nlohmann::json event = nlohmann::json::parse(line);
      EXPECT_NE(event["event"], "gone") << line;
      if (event["event"] == "message" && event["name"] == name) return event;
    }
    return nullptr;
  }

  // The line of the renderer's state in /proc that begins so. A renderer is the process in the
  // innermost namespace, the one with the most numbers.
  std::string RendererState(const std::string& beginning) const {
    std::vector<std::string> state;
    std::ptrdiff_t numbers = 0;
    for (const pid_t process : DescendantsOf(host_->pid())) {
      const auto lines = ReadLines("/proc/" + std::to_string(process) + "/status");
      const std::string all = LineThatBegins("NSpid:", lines);
      if (std::count(all.begin(), all.end(), '\t') <= numbers) continue;
      numbers = std::count(all.begin(), all.end(), '\t');
      state = lines;
    }
    return LineThatBegins(beginning, state);
  }

  // Lets the page go on to its end, under refreshes.
  void ExpectGoodEnd() {
    bus_.SendRefresh(1000);
    WriteFile(home_.path() + "/signal.js", "'use strict';\n");
    EXPECT_FALSE(WaitForMessage("answered").is_null());
    EXPECT_TRUE(WaitForMessage("").is_null());  // to the end
    EXPECT_EQ(host_->Wait(), 0);
    EXPECT_EQ(bus_.observers(), 0);
    const std::string log = home_.path() + "/Library/Logs/Cirrane/CRN/CRN.log";
    EXPECT_THAT(ReadLines(log),
                ElementsAre(HasSubstr("START Velmora CEF Helper"),
                            EndsWith("| Chromium's sandbox is on: forked processes have no log and "
                                     "no memory limit"),
                            HasSubstr("END Velmora CEF Helper")));
    EXPECT_TRUE(LockObjects(log, LockObjects::Keep{}).gone());
  }

  const TemporaryFolder home_;
  const VirtualDisplay display_;
  SessionBus bus_;
  std::unique_ptr<ChildProcess> host_;
};

TEST_F(SandboxTest, PageWorksInTheWholeSandbox) {
  Start(kAsOlderSystem, {});
  ASSERT_FALSE(WaitForMessage("answering").is_null());
  EXPECT_EQ(RendererState("Seccomp:"), "Seccomp:\t2");
  EXPECT_THAT(RendererState("NSpid:"), EndsWith("\t1"));
  ExpectGoodEnd();
}

TEST_F(SandboxTest, PageWorksInNamespacesOfItsOwn) {
  Start({}, {"--switch=disable-seccomp-filter-sandbox"});
  ASSERT_FALSE(WaitForMessage("answering").is_null());
  EXPECT_EQ(RendererState("Seccomp:"), "Seccomp:\t0");
  EXPECT_THAT(RendererState("NSpid:"), EndsWith("\t1"));
  ExpectGoodEnd();
}

}  // namespace
