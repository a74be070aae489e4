#pragma once

#include <functional>
#include <memory>
#include <string>

namespace platform {

// Notifications are names without content that one program of the suite sends to all other programs
// of the user's session. A name is a reverse-domain string of at least three components: the last
// component names the event, the others name the sender.

// Sends `name` to every program that observes it now, without waiting for those programs. Returns
// false when the system's notification service is unreachable or rejects the name. Any thread may
// call it. On Linux, waits at most a second for the service's answer, and returns false without
// one.
bool PostNotification(const std::string& name);

// The thread on which an observer calls its functions.
enum class DeliveryThread {
  kMain,     // the main thread, while its run loop runs
  kPrivate,  // the observer's own thread, with every signal blocked
};

// Returns the thread on which this system delivers notifications.
DeliveryThread GetDeliveryThread();

// Observes one name for the object's lifetime. Reconnects when the service is lost; notifications
// sent while the observer is not connected are missed. An observer that cannot even start, for
// example because of an invalid name, does not retry. On Linux, the observer connects only after
// its construction; it retries from time to time while the service is missing, but gives up when
// the environment names no session bus.
class NotificationObserver {
 public:
  // Calls `receive` for each notification, on the thread of GetDeliveryThread(). Notifications that
  // are pending together may share a call. Calls `report`, with a line of text, when the observer
  // cannot start, from within the constructor. The constructor never waits for the service.
  //
  // On Linux, the private thread also calls `report`: once each time that the service cannot be
  // reached or is lost.
  NotificationObserver(std::string name, std::function<void()> receive,
                       std::function<void(const std::string& problem)> report);
  NotificationObserver(const NotificationObserver&) = delete;
  NotificationObserver& operator=(const NotificationObserver&) = delete;
  // Stops the observer; neither function is called after the destructor returns. Must not run
  // inside a call of either function. With kPrivate delivery, waits for a running call and for
  // nothing else. With kMain delivery, does not wait, and must therefore run on the main thread.
  ~NotificationObserver();

 private:
  class Implementation;
  const std::unique_ptr<Implementation> implementation_;
};

}  // namespace platform
