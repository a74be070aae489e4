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
  // `post` posts a task to the main thread, which checks the memory. Without `post`, the thread
  // that receives the notification does so. `thread` is the thread on which the system delivers
  // notifications; if that is the main thread, `post` is not used.
  explicit NotificationListener(CoalescedTask::Post post = nullptr,
                                platform::DeliveryThread thread = platform::GetDeliveryThread());
  NotificationListener(const NotificationListener&) = delete;
  NotificationListener& operator=(const NotificationListener&) = delete;
  // Waits until a running delivery of a notification ends, so it must not run inside a delivery.
  // Posted tasks refer to this object. None of them may run during the destructor or later.
  ~NotificationListener();

  // Starts to observe. While the notification service is unavailable, notifications are missed. The
  // thread that checks the memory logs the latest reason at the level DEBUG.
  void observe();

  // Allows tasks to be posted to the main thread from now on. Has no effect if `post` is not used.
  void mainThreadIsReady();

  // Answers a refresh notification: checks the memory, which can end the process. If `post` is
  // used, the check runs later, on the main thread, and any thread may call this function.
  // Otherwise the check runs on the calling thread, and calls must not overlap.
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
