#pragma once

#include <functional>
#include <memory>
#include <string>

namespace platform {

// Notifications are names without content that one program of the suite sends to all others of the
// user's session. A name is a reverse-domain string with at least three components: the last one
// names the event, the others name the sender.

// Sends `name` to whoever observes it now, without waiting for them. False when the system's
// notification service is out of reach, does not answer within a second, or does not accept the
// name. Any thread may call it.
bool PostNotification(const std::string& name);

// The thread on which an observer calls its functions.
enum class DeliveryThread {
  kMain,     // the main thread, while its run loop runs
  kPrivate,  // a thread of the observer's own, with every signal blocked
};

// Returns the thread on which this system delivers notifications.
DeliveryThread GetDeliveryThread();

// Observes one name for as long as the object lives. Where the service is missing, or goes away,
// the observer looks for it again now and then; what is sent in between is missed.
class NotificationObserver {
 public:
  // `receive` is called for each notification, those that wait together being one or several,
  // `report` with a line of text once for each time that the service could not be reached or was
  // lost. Both are called on the thread of GetDeliveryThread(). An observer that cannot even begin
  // reports so from within the constructor, which never waits for the service.
  NotificationObserver(std::string name, std::function<void()> receive,
                       std::function<void(const std::string& problem)> report);
  NotificationObserver(const NotificationObserver&) = delete;
  NotificationObserver& operator=(const NotificationObserver&) = delete;
  // Neither function is called any more when it returns. It waits for a call under way, so it must
  // not happen in one, and for nothing else.
  ~NotificationObserver();

 private:
  class Implementation;
  const std::unique_ptr<Implementation> implementation_;
};

}  // namespace platform
