#include "tests/platform/notification_service.h"

#include "tests/support/session_bus.h"

class NotificationService::Implementation {
 public:
  SessionBus bus;
};

NotificationService::NotificationService() : implementation_(std::make_unique<Implementation>()) {}

NotificationService::~NotificationService() = default;

void NotificationService::WaitForObservers(int count) {
  implementation_->bus.WaitForObservers(count);
}
