#pragma once

#include <functional>
#include <memory>
#include <string>

namespace platform {

// Notifications are names without content that one program of the suite sends to all other programs
// of the user's session. A name is a reverse-domain string of at least three components: the last
// component names the event, the others name the sender.

// Sends `name` to every program that observes it now, without waiting for those programs. Returns
// false when the system's notification service is unreachable, does not answer within a second, or
// rejects the name. Any thread may call it.
bool PostNotification(const std::string& name);

// The thread on which an observer calls its functions.
enum class DeliveryThread {
  kMain,     // the main thread, while its run loop runs
  kPrivate,  // the observer's own thread, with every signal blocked
};

// Returns the thread on which this system delivers notifications.
DeliveryThread GetDeliveryThread();

// Observes one name for the object's lifetime. While the service is missing or lost, the observer
// retries from time to time; notifications sent in the meantime are missed.
class NotificationObserver {
 public:
  // Calls `receive` for each notification; notifications that are pending together may lead to one
  // call or several. Calls `report`, with a line of text, once each time that the service cannot be
  // reached or is lost. Both calls are made on the thread of GetDeliveryThread(), except that the
  // constructor itself calls `report` when the observer cannot even start. The constructor never
  // waits for the service.
  NotificationObserver(std::string name, std::function<void()> receive,
                       std::function<void(const std::string& problem)> report);
  NotificationObserver(const NotificationObserver&) = delete;
  NotificationObserver& operator=(const NotificationObserver&) = delete;
  // Stops the observer; neither function is called after the destructor returns. It waits for a
  // running call and for nothing else, so it must not run inside such a call.
  ~NotificationObserver();

 private:
  class Implementation;
  const std::unique_ptr<Implementation> implementation_;
};

}  // namespace platform
