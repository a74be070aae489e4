#pragma once

#include <memory>
#include <string>

#include "helper/coalesced_task.h"
#include "helper/notification_names.h"
#include "platform/mutex.h"
#include "platform/notifications.h"

// Checks the memory of this process when the suite sends the refresh notification. The application
// context must exist from observe() until the listener is destroyed.
class NotificationListener {
 public:
  // `post` runs a task on the main thread, which checks the memory. Without `post`, the thread that
  // receives the notification does so. `thread` is the thread on which the system delivers
  // notifications; if that is the main thread, `post` is not used.
  explicit NotificationListener(CoalescedTask::Post post = nullptr,
                                platform::DeliveryThread thread = platform::GetDeliveryThread());
  NotificationListener(const NotificationListener&) = delete;
  NotificationListener& operator=(const NotificationListener&) = delete;
  // Must not run while a notification is answered.
  ~NotificationListener();

  // Starts to observe. While the notification service is unavailable, notifications are missed, and
  // one line in the log reports the reason.
  void observe();

  // Allows tasks to be posted to the main thread from now on.
  void mainThreadIsReady();

  // Answers a refresh notification. Any thread may call it, but calls must not overlap if `post` is
  // not used.
  void monitorProcess();

 private:
  void KeepProblem(const std::string& problem);
  void Answer();

  CoalescedTask answer_;
  platform::Mutex mutex_;
  bool refresh_ PLATFORM_GUARDED_BY(mutex_) = false;
  // to be logged, where the context may be used
  std::string problem_ PLATFORM_GUARDED_BY(mutex_);
  std::unique_ptr<platform::NotificationObserver> observer_;
};
