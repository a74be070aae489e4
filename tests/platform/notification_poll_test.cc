// Tests the observer's thread while poll() fails. The linker redirects the library's calls to the
// function below.

#include <gtest/gtest.h>
#include <poll.h>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

#include "platform/notifications.h"
#include "tests/support/session_bus.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr char kName[] = "com.velmora.crnc.CRNNotifier.Refresh";

// Makes calls of poll() fail after Begin(), and records their times.
class PollFailure {
 public:
  void Begin() {
    const std::lock_guard<std::mutex> guard(mutex_);
    active_ = true;
  }

  // Called in place of poll(). Records no time for calls that would not have waited.
  bool Fail(int milliseconds) {
    const std::lock_guard<std::mutex> guard(mutex_);
    if (!active_) return false;
    if (milliseconds < 0) times_.push_back(Clock::now());
    changed_.notify_all();
    return true;
  }

  // Returns the time between the first and the last of `count` failures.
  Clock::duration WaitForFailures(std::size_t count) {
    std::unique_lock<std::mutex> guard(mutex_);
    changed_.wait(guard, [&] { return times_.size() >= count; });
    return times_[count - 1] - times_[0];
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool active_ = false;
  std::vector<Clock::time_point> times_;
};

PollFailure g_failure;

TEST(NotificationPoll, ObserverEndsWhilePollFails) {
  SessionBus bus;
  const platform::NotificationObserver observer(
      kName, [] {}, [](const std::string& /*problem*/) {});
  bus.WaitForObservers(1);
  g_failure.Begin();
  bus.SendRefresh();  // ends the blocked call
  EXPECT_GT(g_failure.WaitForFailures(2), std::chrono::milliseconds(100));
}

}  // namespace

extern "C" {
int __real_poll(pollfd* descriptors, nfds_t count, int milliseconds);

int __wrap_poll(pollfd* descriptors, nfds_t count, int milliseconds) {
  if (!g_failure.Fail(milliseconds)) return __real_poll(descriptors, count, milliseconds);
  errno = ENOMEM;
  return -1;
}
}
