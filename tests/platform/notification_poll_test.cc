// The observer's thread while poll() fails. The linker directs the calls of the library to the
// function below.

#include <gtest/gtest.h>
#include <poll.h>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <mutex>

#include "platform/notifications.h"
#include "tests/support/session_bus.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr char kName[] = "com.velmora.crnc.CRNNotifier.Refresh";

// Makes calls of poll() fail from now on, and counts them.
class PollFailure {
 public:
  void Begin() {
    const std::lock_guard<std::mutex> guard(mutex_);
    active_ = true;
  }

  // Called in place of poll().
  bool Fail() {
    const std::lock_guard<std::mutex> guard(mutex_);
    if (!active_) return false;
    ++count_;
    changed_.notify_all();
    return true;
  }

  Clock::time_point WaitForFailures(int count) {
    std::unique_lock<std::mutex> guard(mutex_);
    changed_.wait(guard, [&] { return count_ >= count; });
    return Clock::now();
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool active_ = false;
  int count_ = 0;
};

PollFailure g_failure;

TEST(NotificationPoll, ObserverEndsWhilePollFails) {
  SessionBus bus;
  const platform::NotificationObserver observer(
      kName, [] {}, [](const std::string& /*problem*/) {});
  bus.WaitForObservers(1);
  g_failure.Begin();
  bus.SendRefresh();  // ends the call that waits
  const Clock::time_point first = g_failure.WaitForFailures(1);
  // A thread that does not pause makes these calls in less than a millisecond.
  EXPECT_GT(g_failure.WaitForFailures(3) - first, std::chrono::milliseconds(100));
}

}  // namespace

extern "C" {
int __real_poll(pollfd* descriptors, nfds_t count, int milliseconds);

int __wrap_poll(pollfd* descriptors, nfds_t count, int milliseconds) {
  if (!g_failure.Fail()) return __real_poll(descriptors, count, milliseconds);
  errno = ENOMEM;
  return -1;
}
}
