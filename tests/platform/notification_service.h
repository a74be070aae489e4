#pragma once

#include <memory>

// Runs a private notification service of the system's kind. Processes started during its lifetime
// find it through their environment.
class NotificationService {
 public:
  NotificationService();
  NotificationService(const NotificationService&) = delete;
  NotificationService& operator=(const NotificationService&) = delete;
  ~NotificationService();

  // Waits until the service has registered `count` observers in total. They must already have been
  // created.
  void WaitForObservers(int count);

 private:
  class Implementation;
  const std::unique_ptr<Implementation> implementation_;
};
