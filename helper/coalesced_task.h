#pragma once

#include <functional>
#include <mutex>

// Work that any thread may ask for and one thread does. All requests that come while the work waits
// are one; a request that comes while it runs makes it run once more.
class CoalescedTask {
 public:
  // Brings a task to the thread that does the work. False when it is refused, as long as that
  // thread does not exist; then the task is not run.
  using Post = std::function<bool(std::function<void()> task)>;

  // Without `post` the work is done within Request(), which one thread at a time may call then.
  // With it, requests wait for Allow() first: CEF takes no tasks before it is set up.
  explicit CoalescedTask(std::function<void()> work, Post post = nullptr);
  CoalescedTask(const CoalescedTask&) = delete;
  CoalescedTask& operator=(const CoalescedTask&) = delete;

  // Any thread, with a `post`. A task that is refused now is posted by the next request.
  void Request();
  // From now on tasks can be posted. What was requested before is posted here.
  void Allow();

 private:
  void PostIfDue();
  void Run();

  const std::function<void()> work_;
  const Post post_;
  std::mutex mutex_;  // over what follows; not held while the work runs
  bool allowed_ = false;
  bool requested_ = false;
  bool posted_ = false;  // until the work is done
};
