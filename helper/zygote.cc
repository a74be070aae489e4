#include "helper/zygote.h"

#include "helper/application_context.h"
#include "helper/log_message.h"
#include "helper/notification_listener.h"

namespace {

constexpr char kComponent[] = "Zygote";

}  // namespace

void CloseLogBeforeForks(bool sandboxed) {
  if (sandboxed) {
    LogText(tarn::WARN, kComponent,
            "Chromium's sandbox is on: forked processes have no log and no memory limit");
  } else {
    LogText(tarn::INFO, kComponent,
            "Forked renderers begin a log of their own, other forked processes have none");
  }
  ApplicationContext::destroy();
}

void SetUpForkedRenderer(NotificationListener& listener) {
  ApplicationContext::instance();
  listener.observe();
}
