#include <gtest/gtest.h>
#include <unistd.h>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "logging/binary_lock.h"
#include "tests/stress/log_check.h"
#include "tests/stress/log_user.h"
#include "tests/stress/stepped_process.h"
#include "tests/stress/stress_options.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/shared_page.h"
#include "tests/support/temporary_folder.h"

namespace {

using State = SteppedProcess::State;

constexpr int kMaxSteps = 50;

// Tests every point at which another process can overtake a process, or at which it can be killed.
class LockStepsTest : public testing::Test {
 protected:
  bool Live() const {
    tarn::BinaryLock lock;
    if (!lock.create(path_, LockObjects::kProject) || !lock.wait()) return false;
    const bool alone = ++*inside_ == 1 && objects_.free() == 0;
    --*inside_;
    return alone && lock.release() && lock.finalize();
  }

  // May attach to a set that is being removed, and detects that only when it detaches.
  bool AttachOnly() const {
    tarn::BinaryLock lock;
    if (!lock.create(path_, LockObjects::kProject)) return false;
    lock.finalize();
    return true;
  }

  bool LiveTwice() const { return Live() && Live(); }

  bool WriteLine(int writer) const {
    LogUser user(folder_.path(), "shared.log");
    if (!user.Attach()) return false;
    NumberedLogger(writer, 0).WriteNext();
    return user.Detach();
  }

  // Runs the processes to their ends in turn, because one may have to wait for another.
  static void Finish(const std::vector<SteppedProcess*>& processes) {
    std::vector<State> states(processes.size(), State::kBusy);
    for (int turn = 0; turn < 200; ++turn) {
      bool busy = false;
      for (std::size_t i = 0; i < processes.size(); ++i) {
        states[i] = processes[i]->Run();
        busy = busy || states[i] == State::kBusy;
      }
      if (!busy) break;
    }
    for (const State state : states)
      EXPECT_EQ(state, State::kGood);
  }

  // Stops two processes in the middle, runs a third process, then ends the two in either order.
  // Every second stop is the return of a call; nothing happens between it and the next call.
  void TwoStop(const std::function<bool()>& second_body, int second_stride) const {
    bool first_ends_first = false;
    State first_state = State::kStopped;
    for (int i = 0; first_state == State::kStopped; i += 2) {
      State second_state = State::kStopped;
      // A process that meets a held lock would take many more identical steps.
      for (int j = 0; second_state == State::kStopped && j < kMaxSteps; j += second_stride) {
        first_ends_first = !first_ends_first;
        SteppedProcess first([&] { return Live(); });
        first_state = first.Step(i);
        SteppedProcess second(second_body);
        second_state = second.Step(j);
        SteppedProcess third([&] { return Live(); });
        ASSERT_NE(third.Run(), State::kFailed) << "after " << i << " and " << j << " steps";
        if (first_ends_first) {
          Finish({&first, &second, &third});
        } else {
          Finish({&second, &first, &third});
        }
        EXPECT_TRUE(objects_.gone()) << "after " << i << " and " << j << " steps";
        ASSERT_FALSE(HasFailure()) << "after " << i << " and " << j << " steps";
      }
    }
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/shared.log";
  const LockObjects objects_{path_};
  const SharedPage<std::atomic<int>> inside_;
};

TEST_F(LockStepsTest, SurvivesOvertakingAtEveryStep) {
  const auto live = [&] { return Live(); };
  const auto live_twice = [&] { return LiveTwice(); };
  State state = State::kStopped;
  for (int steps = 0; state == State::kStopped; ++steps) {
    SteppedProcess first(live);
    state = first.Step(steps);
    SteppedProcess second(live_twice);
    const State overtaken = second.Run();
    ASSERT_NE(overtaken, State::kFailed) << "after " << steps << " steps";
    Finish({&first, &second});
    EXPECT_TRUE(objects_.gone()) << "after " << steps << " steps";
    ASSERT_FALSE(HasFailure()) << "after " << steps << " steps";
  }
}

TEST_F(LockStepsTest, SurvivesTwoStoppedProcesses) {
  TwoStop([&] { return Live(); }, FullSize() ? 1 : 4);
}

TEST_F(LockStepsTest, SurvivesTwoStoppedProcessesWithIdleOne) {
  TwoStop([&] { return AttachOnly(); }, FullSize() ? 1 : 2);
}

TEST_F(LockStepsTest, SurvivesKillAtEveryStep) {
  State state = State::kStopped;
  for (int steps = 0; state == State::kStopped; ++steps) {
    SteppedProcess victim([&] { return LiveTwice(); });
    state = victim.Step(steps);
    if (state == State::kStopped) victim.Kill();
    *inside_ = 0;
    SteppedProcess second([&] { return LiveTwice(); });
    SteppedProcess third([&] { return LiveTwice(); });
    Finish({&second, &third});
    ASSERT_FALSE(HasFailure()) << "after " << steps << " steps";
    objects_.Remove();
  }
}

// Kills a writer at every step from attaching to detaching, with one line written in between.
TEST_F(LockStepsTest, SurvivesKilledWriterAtEveryStep) {
  const int stride = 2;
  State state = State::kStopped;
  for (int steps = 0; state == State::kStopped; steps += stride) {
    SteppedProcess victim([&] { return WriteLine(0); });
    state = victim.Step(steps);
    // It waits for no other process, so it is only slow.
    while (state == State::kBusy)
      state = victim.Step();
    if (state == State::kStopped) victim.Kill();
    SteppedProcess second([&] { return WriteLine(1); });
    SteppedProcess third([&] { return WriteLine(2); });
    Finish({&second, &third});

    const bool killed = state == State::kStopped;
    LogCheck check(
        {{victim.pid(), killed ? 0 : 1, killed}, {second.pid(), 1, false}, {third.pid(), 1, false}},
        0);
    EXPECT_TRUE(check.Read(path_)) << check.problem();
    EXPECT_EQ(check.torn() + check.empty(), 0);
    ASSERT_FALSE(HasFailure()) << "after " << steps << " steps";
    objects_.Remove();
    std::filesystem::resize_file(path_, 0);
  }
}

}  // namespace
