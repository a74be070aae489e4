#include "helper/application_context.h"

#include <cstdlib>

#include "helper/log_message.h"
#include "helper/memory_limit.h"
#include "helper/notification_names.h"
#include "logging/logging_core.h"
#include "platform/notifications.h"
#include "utils/log_route.h"
#include "utils/process_utils.h"

namespace {

constexpr char kName[] = "HXPL";
constexpr char kLogFile[] = "CRN.log";

void Log(tarn::Log_Level level, const char* text) { LogText(level, "ApplicationContext", text); }

}  // namespace

ApplicationContext* ApplicationContext::s_instance = nullptr;

C3Logger::C3Logger(const char* name) : tarn::Logger(name) {
  setDomain(name);
  setSessionId(tarn::LoggingCore::generateSessionId().c_str());
}

ApplicationContext* ApplicationContext::instance() {
  if (!s_instance) s_instance = new ApplicationContext;
  return s_instance;
}

void ApplicationContext::destroy() {
  if (!s_instance) return;
  s_instance->finalize();
  delete s_instance;
  s_instance = nullptr;
}

void ApplicationContext::checkMemoryUsage() {
  ApplicationContext* const context = instance();
  unsigned long long bytes = 0;
  TarnUtils::ProcessUtils::GetProcessRunningMemory(bytes);  // stays 0 on failure
  if (!IsTooMuchMemory(bytes)) return;
  context->logger()->warn("", "Memory Limit Reached: %s. Quitting !!", FormatMemory(bytes).c_str());
  // The process ends even if the notification cannot be posted.
  static_cast<void>(platform::PostNotification(kMemoryAnalyticsNotification));
  destroy();
  std::exit(1);
}

ApplicationContext::ApplicationContext() {
  gLogMutex.init();
  log_target_ = new tarn::LogTargetDefault(kName);
  // The level comes first, so that the marker files that change it are those of the target's
  // default file name.
  log_target_->setLogLevel(tarn::INFO);
  log_target_->setLogFile(kLogFile, "");
  tarn::LoggingCore::getInstance()->registerTarget(log_target_);
  logger_ = new C3Logger(kName);
  gLogger = logger_;
  TarnUtils::SetLogger(reinterpret_cast<void*>(gLogMessageFnPtr), nullptr);
  Log(tarn::INFO, "************************* START Velmora CEF Helper *************************");
  Log(tarn::TRACE, "Application context initialized");
}

void ApplicationContext::finalize() {
  Log(tarn::TRACE, "Finalizing Application context");
  Log(tarn::INFO,
      "************************* END Velmora CEF Helper. Version: 4.3.0.256 "
      "*************************");
  gLogMutex.destroy();
  tarn::LoggingCore::getInstance()->unregisterTarget(log_target_);
  delete log_target_;
  log_target_ = nullptr;
  delete logger_;
  logger_ = nullptr;
  gLogger = nullptr;
}
