#include <gtest/gtest.h>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "logging/logging_core.h"
#include "support/files.h"
#include "tests/stress/stepped_process.h"
#include "tests/support/limited_target.h"
#include "tests/support/lock_objects.h"
#include "tests/support/temporary_folder.h"

namespace {

using Limits = tarn::LogRotation::Limits;
using State = SteppedProcess::State;

constexpr char kContent[] = "the content";
constexpr char kLine[] = "a line of the next process";

// Kills a process that rotates the log before each of its system calls in turn.
class RotationStepsTest : public testing::Test {
 protected:
  // Rotates the file if it has reached its limit.
  bool Register(const Limits& limits, bool writes) const {
    LimitedTarget target("stress", limits);
    auto* const core = tarn::LoggingCore::getInstance();
    if (!target.setLogFile("shared.log", folder_.path().c_str())) return false;
    if (!core->registerTarget(&target)) return false;
    if (writes) target.writeLog(tarn::INFO, "", "", "", "", "", "", kLine, nullptr, 0, true);
    return core->unregisterTarget(&target);
  }

  // Returns the last column of all lines of all files, including hidden files.
  std::vector<std::string> Messages() const {
    std::vector<std::string> messages;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
      for (const std::string& line : ReadLines(entry.path())) {
        const std::size_t bar = line.rfind('|');
        messages.push_back(bar == std::string::npos ? line : line.substr(bar + 2));
      }
    }
    return messages;
  }

  void KillAnywhere(const Limits& limits) {
    State state = State::kStopped;
    for (int steps = 0; state == State::kStopped && !HasFailure(); ++steps) {
      SCOPED_TRACE("after " + std::to_string(steps) + " steps");
      WriteFile(path_, std::string(kContent) + "\n");
      SteppedProcess victim([&] { return Register(limits, false); });
      state = victim.Step(steps);
      // It waits for no other process, so it is only slow.
      while (state == State::kBusy)
        state = victim.Step();
      if (state == State::kStopped) victim.Kill();
      SteppedProcess next([&] { return Register({}, true); });
      while (next.Run() == State::kBusy) {
      }
      Check(state == State::kGood);
      LockObjects(path_, LockObjects::Keep{}).Remove();
      for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
        std::filesystem::remove(entry);
    }
    EXPECT_EQ(state, State::kGood);
  }

  void Check(bool rotated) const {
    const std::vector<std::string> messages = Messages();
    EXPECT_EQ(std::count(messages.begin(), messages.end(), kContent), 1);
    EXPECT_EQ(std::count(messages.begin(), messages.end(), kLine), 1);
    EXPECT_FALSE(std::filesystem::exists(folder_.path() + "/.shared.log.rotating"));
    const auto files = std::distance(std::filesystem::directory_iterator(folder_.path()), {});
    EXPECT_LE(files, 2);
    EXPECT_TRUE(files == 2 || !rotated);
    // An emptied file begins with its header, and no other file has a header.
    EXPECT_EQ(messages.size(), files == 2 ? 8U : 2U);
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/shared.log";
};

TEST_F(RotationStepsTest, KillDuringCopyLosesAndDuplicatesNothing) {
  Limits limits;
  limits.segment_size = 1;
  KillAnywhere(limits);
}

TEST_F(RotationStepsTest, KillDuringRenameLosesAndDuplicatesNothing) {
  Limits limits;
  limits.segment_size = 1;
  limits.max_copied_size = 1;
  KillAnywhere(limits);
}

}  // namespace
