#pragma once

#include <functional>

#include "platform/mutex.h"

// Runs work on one thread at the request of any thread. All requests that arrive before the work
// starts result in one run. A request that arrives during a run causes another run.
class CoalescedTask {
 public:
  // Posts `task` to the thread that does the work. Returns false and drops the task while that
  // thread does not exist. Must not run the task itself or call Request() or Allow().
  using Post = std::function<bool(std::function<void()> task)>;

  // Without `post`, Request() runs the work itself, and calls of Request() must not overlap. With
  // `post`, requests wait for Allow(), because CEF accepts no tasks before it is set up. Posted
  // tasks refer to this object, which must outlive them.
  explicit CoalescedTask(std::function<void()> work, Post post = nullptr);
  CoalescedTask(const CoalescedTask&) = delete;
  CoalescedTask& operator=(const CoalescedTask&) = delete;

  // Requests a run. With a `post`, any thread may call it. If `post` refuses the task, the next
  // request posts it again.
  void Request();
  // Allows tasks to be posted from now on, and posts the task if a run has been requested. Has no
  // effect without `post`. Any thread may call it, more than once.
  void Allow();

 private:
  void PostIfDue() PLATFORM_REQUIRES(mutex_);
  void Run();

  const std::function<void()> work_;
  const Post post_;
  platform::Mutex mutex_;  // not held while the work runs
  bool allowed_ PLATFORM_GUARDED_BY(mutex_) = false;
  bool requested_ PLATFORM_GUARDED_BY(mutex_) = false;
  bool posted_ PLATFORM_GUARDED_BY(mutex_) = false;  // until the work is done
};
