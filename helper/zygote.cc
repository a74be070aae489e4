#include "helper/zygote.h"

#include "helper/application_context.h"
#include "helper/log_message.h"
#include "helper/notification_listener.h"

namespace {

void Log(tarn::Log_Level level, const char* text) {
  if (!gLogMessageFnPtr) return;
  gLogMessageFnPtr(level, gLogModuleName, "Zygote", "", "", "%s", text);
}

}  // namespace

void CloseLogBeforeForks(bool sandboxed) {
  if (sandboxed) {
    Log(tarn::WARN, "Chromium's sandbox is on: forked processes have no log and no memory limit");
  } else {
    Log(tarn::INFO, "Forked renderers begin a log of their own, other forked processes have none");
  }
  ApplicationContext::destroy();
}

void BeginInForkedRenderer(NotificationListener& listener) {
  ApplicationContext::instance();
  listener.observe();
}
