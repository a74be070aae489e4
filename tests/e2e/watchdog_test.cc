// The effect of the suite's refresh notification on the processes of a real Chromium.

#include <gmock/gmock.h>
#include <algorithm>
#include <filesystem>
#include <optional>

#include "support/files.h"
#include "tests/e2e/suite_host_run.h"
#include "tests/e2e/traced_helper.h"
#include "tests/support/child_process.h"
#include "tests/support/process_memory.h"
#include "tests/support/session_bus.h"
#include "tests/support/test_home.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;

// The status that the browser reports for a renderer that exits without a signal.
constexpr int kAbnormalTermination = 0;

class WatchdogTest : public testing::Test {
 protected:
  // Returns the number of helpers that ended with status 1.
  int CountEndedWithOne() const {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
      if (entry.path().extension() != ".trace") continue;
      const std::string trace = ReadFile(entry.path());
      if (trace.find("exit_group(1)") != std::string::npos) ++count;
    }
    return count;
  }

  // Creates the file that the page waits for.
  void Continue() const { WriteFile(signal_, "'use strict';\n"); }

  const TemporaryFolder folder_;
  const std::string traced_helper_ = WriteTracedHelper(folder_.path());
  const std::string signal_ = folder_.path() + "/signal.js";
  SessionBus bus_;
};

// Returns whether the process has the thread that waits for notifications.
bool Observes(pid_t process) {
  const std::string threads = "/proc/" + std::to_string(process) + "/task";
  return std::any_of(std::filesystem::directory_iterator(threads), {}, [](const auto& thread) {
    return ReadFile(thread.path().string() + "/comm") == "notifications\n";
  });
}

class FullRendererTest : public WatchdogTest, public testing::WithParamInterface<const char*> {};

TEST_P(FullRendererTest, EndsAloneAndItsPageCanBeReloaded) {
  std::optional<SuiteHostRun> host;
  SuiteHostRun& run =
      host.emplace("survivor.html?" + signal_ + "#memory.html?" + GetParam() + ",memory.html",
                   std::vector<std::string>{"--helper=" + traced_helper_, "--timeout=120"},
                   SuiteHostRun::Environment{nullptr, bus_.address()});
  ASSERT_FALSE(run.WaitForMessage("filled").is_null());
  const auto before = run.Children();
  ASSERT_EQ(before.count("gpu-process"), 1U);
  bus_.WaitForObservers(2);  // the renderers
  bus_.SendRefresh();
  const auto gone = run.WaitFor([](const auto& event) { return event["event"] == "gone"; });
  ASSERT_FALSE(gone.is_null());
  EXPECT_EQ(gone["browser"], 2);
  EXPECT_EQ(gone["status"], kAbnormalTermination);
  bus_.WaitForAnalytics(1);
  const auto after = run.Children();
  EXPECT_EQ(after.find("gpu-process")->second, before.find("gpu-process")->second);
  EXPECT_TRUE(Observes(after.find("renderer")->second));
  EXPECT_FALSE(Observes(after.find("gpu-process")->second));
  Continue();
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(nlohmann::json(run.Messages("echoed")).dump(), R"([["survived"]])");
  EXPECT_EQ(run.Count("gone"), 1);

  const std::vector<std::string> lines = run.LogLines();
  EXPECT_THAT(lines, Contains(AllOf(HasSubstr("[WARN]"), HasSubstr("Memory Limit Reached: "),
                                    EndsWith(" MB. Quitting !!")))
                         .Times(1));
  EXPECT_THAT(lines, Contains(HasSubstr("END Velmora CEF Helper")).Times(1));
  host.reset();  // waits for the tracers that write the statuses
  EXPECT_EQ(CountEndedWithOne(), 1);
}

INSTANTIATE_TEST_SUITE_P(Arrays, FullRendererTest, testing::Values("plain", "typed"));

TEST_F(WatchdogTest, SmallRendererAnswersItsPageDuringFloodOfRefreshes) {
  SuiteHostRun run("answering.html?" + signal_, {"--timeout=120"}, {nullptr, bus_.address()});
  ASSERT_FALSE(run.WaitForMessage("answering").is_null());
  bus_.WaitForObservers(1);
  const pid_t renderer = run.Children().find("renderer")->second;
  bus_.SendRefresh(1000);
  const long before = MemoryFigure(renderer, "Anonymous");
  bus_.SendRefresh(10000);
  const long after = MemoryFigure(renderer, "Anonymous");
  ASSERT_GT(before, 0);
  ASSERT_GT(after, 0);
  EXPECT_LT(after, before + (32 << 10));  // the page itself creates garbage
  const RefreshFlood flood(bus_);
  Continue();  // the page ends after ten more answers
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Count("gone"), 0);
}

TEST_F(WatchdogTest, RefreshesDuringStartDoNoHarm) {
  const RefreshFlood flood(bus_);
  for (int i = 0; i < 3; ++i) {
    SuiteHostRun run("goodbye.html", {}, {nullptr, bus_.address()});
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.Message("echoed").dump(), R"(["still here"])");
    EXPECT_EQ(run.Count("gone"), 0);
  }
}

TEST_F(WatchdogTest, HelperEndsWhenBusHangs) {
  const TestHome home;
  const ScopedVariable bus("DBUS_SESSION_BUS_ADDRESS", bus_.address().c_str());
  const TemporaryFolder root;
  bus_.Suspend();
  ChildProcess helper({OWN_ROOT, root.path(), "-", HEX_HELPER}, {{}, home.path() + "/stderr"});
  EXPECT_EQ(helper.Wait(), 0);
}

}  // namespace
