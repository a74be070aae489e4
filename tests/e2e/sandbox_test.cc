// A real Chromium with its sandbox, run as an ordinary user: pages work, and no process crashes.

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

// The first parameter is the only folder that the program may write to. The root folder stays the
// same because Chromium cannot create its own namespaces after a change of the root folder.
constexpr char kAsOrdinaryUser[] = R"(
mount --bind "$0" "$0"
mount -o remount,bind,ro /
exec unshare --user --map-user=1000 --map-group=1000 "$@")";

// Chromium's system call filter kills threads in which a newer C library makes these two calls. The
// library falls back to older calls when these fail with ENOSYS.
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
      GTEST_SKIP() << "this system does not allow ordinary users to create the namespaces that "
                      "Chromium's sandbox consists of";
    }
  }

  // Starts the example browser, by way of the command `through` if given.
  void Start(const std::vector<std::string>& through, const std::vector<std::string>& options) {
    std::vector<std::string> command = {"unshare", "--user", "--map-root-user", "--mount",
                                        "sh",      "-ec",    kAsOrdinaryUser,   home_.path()};
    command.insert(command.end(), through.begin(), through.end());
    command.insert(command.end(), {SUITE_HOST, "--sandbox", "--timeout=120"});
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(FileUrl(E2E_PAGES "/answering.html?" + home_.path() + "/signal.js", "?"));
    ChildProcess::Options process;
    process.error_file = home_.path() + "/stderr";
    process.environment = {{"DISPLAY", display_.name()}};
    for (const char* const name : {"HOME", "TMPDIR", "XDG_CACHE_HOME", "XDG_CONFIG_HOME",
                                   "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
      process.environment[name] = home_.path();
    }
    host_ = std::make_unique<ChildProcess>(command, process);
  }

  // Reads events up to a message with this name and returns it; null at the end of the output.
  nlohmann::json WaitForMessage(const std::string& name) {
    for (std::string line; host_->ReadLine(line);) {
      const nlohmann::json event = nlohmann::json::parse(line);
      EXPECT_NE(event["event"], "gone") << line;
      if (event["event"] == "message" && event["name"] == name) return event;
    }
    return nullptr;
  }

  // Returns the line of the renderer's status in /proc that begins with `beginning`. The renderer
  // is the process in the innermost namespace, so it has the most process identifiers.
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

  // Sends refreshes, then the signal for the page to finish, and checks the end of the run.
  void ExpectGoodEnd() {
    bus_.SendRefresh(1000);
    WriteFile(home_.path() + "/signal.js", "'use strict';\n");
    EXPECT_FALSE(WaitForMessage("answered").is_null());
    EXPECT_TRUE(WaitForMessage("").is_null());  // reads the remaining events
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

TEST_F(SandboxTest, PageWorksInFullSandbox) {
  Start(kAsOlderSystem, {});
  ASSERT_FALSE(WaitForMessage("answering").is_null());
  EXPECT_EQ(RendererState("Seccomp:"), "Seccomp:\t2");
  EXPECT_THAT(RendererState("NSpid:"), EndsWith("\t1"));
  ExpectGoodEnd();
}

TEST_F(SandboxTest, PageWorksInNamespacesAlone) {
  Start({}, {"--switch=disable-seccomp-filter-sandbox"});
  ASSERT_FALSE(WaitForMessage("answering").is_null());
  EXPECT_EQ(RendererState("Seccomp:"), "Seccomp:\t0");
  EXPECT_THAT(RendererState("NSpid:"), EndsWith("\t1"));
  ExpectGoodEnd();
}

}  // namespace
