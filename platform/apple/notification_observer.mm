#import <Foundation/Foundation.h>
#include <utility>

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/notifications.h"

// The object that the system's notification center calls for an observer.
@interface NotificationListener : NSObject {
 @private
  const std::function<void()>* receive_;  // not owned
}
- (id)initWithReceiver:(const std::function<void()>*)receive;
// Calls the receiver on the main thread. Ignores the content of the notification.
- (void)monitorProcess:(NSNotification*)notification;
@end

@implementation NotificationListener

- (id)initWithReceiver:(const std::function<void()>*)receive {
  self = [super init];
  if (self) receive_ = receive;
  return self;
}

- (void)monitorProcess:(NSNotification*)notification {
  (*receive_)();
}

@end

namespace platform {

// The notification center connects, and reconnects, to its service by itself.
class NotificationObserver::Implementation {
 public:
  Implementation(const std::string& name, std::function<void()> receive,
                 const std::function<void(const std::string&)>& report)
      : receive_(std::move(receive)),
        listener_([[NotificationListener alloc] initWithReceiver:&receive_]) {
    const AutoreleaseScope scope;
    const std::string problem = Begin(name);
    if (!problem.empty()) report(problem);
  }

  ~Implementation() {
    const AutoreleaseScope scope;
    if (observes_) [[NSDistributedNotificationCenter defaultCenter] removeObserver:listener_];
    [listener_ release];
  }

  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

 private:
  // Starts to observe. Returns a description of the problem, or an empty string.
  std::string Begin(const std::string& name) {
    NSString* const text = ToFoundation(name);
    if ([text length] == 0) return "no notification can have the name \"" + name + "\"";
    std::string problem;
    @try {
      [[NSDistributedNotificationCenter defaultCenter] addObserver:listener_
                                                          selector:@selector(monitorProcess:)
                                                              name:text
                                                            object:nil];
      observes_ = true;
    } @catch (NSException* exception) {
      problem = "the notification centre is out of reach";
      std::string reason;
      if (FromFoundation([exception reason], reason)) problem += ": " + reason;
    }
    return problem;
  }

  const std::function<void()> receive_;
  NotificationListener* const listener_;
  bool observes_ = false;
};

DeliveryThread GetDeliveryThread() { return DeliveryThread::kMain; }

NotificationObserver::NotificationObserver(std::string name, std::function<void()> receive,
                                           std::function<void(const std::string&)> report)
    : implementation_(std::make_unique<Implementation>(name, std::move(receive), report)) {}

NotificationObserver::~NotificationObserver() = default;

}  // namespace platform
