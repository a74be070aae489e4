#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "helper/coalesced_task.h"
#include "helper/notification_names.h"
#include "platform/notifications.h"

// Answers the suite's refresh notification with a look at the memory of this process. The
// application context has to exist from observe() on, until the listener's end.
class NotificationListener {
 public:
  // `post` runs a task on the main thread, which checks the memory. Without `post`, the thread that
  // receives the notification does so. `thread` is the thread on which the system delivers
  // notifications; if that is the main thread, `post` is not used.
  explicit NotificationListener(CoalescedTask::Post post = nullptr,
                                platform::DeliveryThread thread = platform::GetDeliveryThread());
  NotificationListener(const NotificationListener&) = delete;
  NotificationListener& operator=(const NotificationListener&) = delete;
  // Not while a notification is answered.
  ~NotificationListener();

  // Begins to observe. Without a notification service there is one line in the log, and no answers.
  void observe();

  // The main thread takes tasks from now on.
  void mainThreadIsReady();

  // Answers a refresh notification. Any thread may call it; calls must not overlap where `post` is
  // not used.
  void monitorProcess();

 private:
  void KeepProblem(const std::string& problem);
  void Answer();

  CoalescedTask answer_;
  std::mutex mutex_;  // over the next two
  bool refresh_ = false;
  std::string problem_;  // to be logged, where the context may be used
  std::unique_ptr<platform::NotificationObserver> observer_;
};
