#include "helper/notification_listener.h"

#include <gtest/gtest.h>
#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "helper/application_context.h"
#include "platform/notifications.h"
#include "tests/stress/stress_options.h"
#include "tests/support/session_bus.h"
#include "tests/support/test_home.h"

namespace {

constexpr int kRounds = 1000;

// The tasks of a main thread that sometimes refuses tasks.
class TaskQueue {
 public:
  CoalescedTask::Post post() {
    return [this](std::function<void()> task) {
      const std::lock_guard<std::mutex> guard(mutex_);
      if (++asked_ % 7 == 0) return false;
      tasks_.push_back(std::move(task));
      return true;
    };
  }

  int RunAll() {
    int run = 0;
    for (;; ++run) {
      std::unique_lock<std::mutex> guard(mutex_);
      if (tasks_.empty()) return run;
      const std::function<void()> task = std::move(tasks_.front());
      tasks_.pop_front();
      guard.unlock();
      task();
    }
  }

 private:
  std::mutex mutex_;
  int asked_ = 0;
  std::deque<std::function<void()>> tasks_;
};

// One thread sends notifications without a pause while listeners begin, answer and end.
TEST(NotificationStressTest, ListenersBeginAndEndDuringNotifications) {
  const TestHome home;
  SessionBus bus;
  ApplicationContext::instance();
  std::atomic<bool> ended{false};
  std::atomic<long> sent{0};
  std::thread suite([&] {
    for (; !ended; ++sent)
      EXPECT_TRUE(platform::PostNotification(kRefreshNotification));
  });
  int answers = 0;
  for (int round = 1; round <= kRounds; ++round) {
    TaskQueue queue;
    NotificationListener listener(queue.post());
    listener.observe();
    if (round % 3 == 0) bus.WaitForObservers(bus.observers() + 1);
    std::thread chromium([&] { listener.mainThreadIsReady(); });
    listener.monitorProcess();
    answers += queue.RunAll();
    chromium.join();
    answers += queue.RunAll();
  }
  ended = true;
  suite.join();
  EXPECT_GE(answers, kRounds / 2);
  PrintFigure("%d listeners, %ld notifications, %d answers", kRounds, sent.load(), answers);
  ApplicationContext::destroy();
}

}  // namespace
