#include "helper/coalesced_task.h"

#include <gtest/gtest.h>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace {

// Stands for a thread that accepts or refuses tasks.
class CoalescedTaskTest : public testing::Test {
 protected:
  CoalescedTask::Post post() {
    return [this](std::function<void()> task) {
      ++posts_;
      if (accepts_) tasks_.push_back(std::move(task));
      return accepts_;
    };
  }

  void RunOne() {
    ASSERT_FALSE(tasks_.empty());
    const std::function<void()> task = std::move(tasks_.front());
    tasks_.pop_front();
    task();
  }

  bool accepts_ = true;
  int posts_ = 0;
  int runs_ = 0;
  std::deque<std::function<void()>> tasks_;
  CoalescedTask task_{[this] { ++runs_; }, post()};
};

TEST_F(CoalescedTaskTest, RunsAtOnceWithoutPost) {
  CoalescedTask task([this] { ++runs_; });
  task.Request();
  task.Request();
  EXPECT_EQ(runs_, 2);
}

TEST_F(CoalescedTaskTest, PostsNothingBeforeAllow) {
  task_.Request();
  task_.Request();
  EXPECT_EQ(posts_, 0);
  task_.Allow();
  ASSERT_EQ(tasks_.size(), 1U);
  RunOne();
  EXPECT_EQ(runs_, 1);
  EXPECT_TRUE(tasks_.empty());
}

TEST_F(CoalescedTaskTest, PostsNothingWithoutRequest) {
  task_.Allow();
  EXPECT_EQ(posts_, 0);
}

TEST_F(CoalescedTaskTest, MergesRequestsBeforeRun) {
  task_.Allow();
  for (int i = 0; i < 10; ++i)
    task_.Request();
  ASSERT_EQ(tasks_.size(), 1U);
  RunOne();
  EXPECT_EQ(runs_, 1);
  task_.Request();
  RunOne();
  EXPECT_EQ(runs_, 2);
}

TEST_F(CoalescedTaskTest, RunsAgainAfterRequestDuringRun) {
  CoalescedTask* running = nullptr;
  CoalescedTask task(
      [&] {
        if (++runs_ > 1) return;
        running->Request();
        running->Request();
        EXPECT_TRUE(tasks_.empty());
      },
      post());
  running = &task;
  task.Allow();
  task.Request();
  RunOne();
  EXPECT_EQ(runs_, 1);
  RunOne();
  EXPECT_EQ(runs_, 2);
  EXPECT_TRUE(tasks_.empty());
}

TEST_F(CoalescedTaskTest, RunsRefusedTaskOnce) {
  accepts_ = false;
  task_.Allow();
  task_.Request();
  task_.Request();
  EXPECT_EQ(posts_, 2);
  accepts_ = true;
  task_.Allow();
  task_.Allow();
  ASSERT_EQ(tasks_.size(), 1U);
  RunOne();
  EXPECT_EQ(runs_, 1);
}

TEST_F(CoalescedTaskTest, RunsAfterEachRequest) {
  // Four threads request runs. The last run starts after the last request of each thread.
  std::mutex mutex;
  std::condition_variable posted;
  std::deque<std::function<void()>> queue;
  bool ended = false;
  std::atomic<long> requested{0};
  long seen = 0;
  CoalescedTask task([&] { seen = requested.load(); },
                     [&](std::function<void()> work) {
                       const std::lock_guard<std::mutex> guard(mutex);
                       queue.push_back(std::move(work));
                       posted.notify_one();
                       return true;
                     });
  std::thread worker([&] {
    std::unique_lock<std::mutex> guard(mutex);
    for (;;) {
      posted.wait(guard, [&] { return ended || !queue.empty(); });
      if (queue.empty()) return;
      const std::function<void()> work = std::move(queue.front());
      queue.pop_front();
      guard.unlock();
      work();
      guard.lock();
    }
  });
  std::vector<std::thread> requesters;
  for (int i = 0; i < 4; ++i) {
    requesters.emplace_back([&] {
      for (int j = 0; j < 1000; ++j) {
        ++requested;
        task.Request();
        if (j == 500) task.Allow();
      }
    });
  }
  for (std::thread& requester : requesters)
    requester.join();
  {
    const std::lock_guard<std::mutex> guard(mutex);
    ended = true;
    posted.notify_one();
  }
  worker.join();
  EXPECT_EQ(seen, 4000);
}

}  // namespace
