#include "helper/coalesced_task.h"

#include <utility>

CoalescedTask::CoalescedTask(std::function<void()> work, Post post)
    : work_(std::move(work)), post_(std::move(post)) {}

void CoalescedTask::Request() {
  if (!post_) {
    work_();
    return;
  }
  const platform::MutexLock lock(mutex_);
  requested_ = true;
  PostIfDue();
}

void CoalescedTask::Allow() {
  const platform::MutexLock lock(mutex_);
  allowed_ = true;
  if (post_) PostIfDue();
}

// The caller holds the lock, which the posted task takes first. The task therefore cannot start
// before `posted_` is set.
void CoalescedTask::PostIfDue() {
  if (!allowed_ || !requested_ || posted_) return;
  posted_ = post_([this] { Run(); });
}

void CoalescedTask::Run() {
  {
    const platform::MutexLock lock(mutex_);
    requested_ = false;
  }
  work_();
  const platform::MutexLock lock(mutex_);
  posted_ = false;
  PostIfDue();
}
