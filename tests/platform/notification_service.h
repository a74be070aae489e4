#pragma once

#include <memory>

// A notification service of the test's own, of whichever kind the system has: the processes that
// are started during its life find it by their environment.
class NotificationService {
 public:
  NotificationService();
  NotificationService(const NotificationService&) = delete;
  NotificationService& operator=(const NotificationService&) = delete;
  ~NotificationService();

  // Until the service knows of so many observers in all, which have been made already.
  void WaitForObservers(int count);

 private:
  class Implementation;
  const std::unique_ptr<Implementation> implementation_;
};
