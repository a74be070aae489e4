#include "helper/notification_listener.h"

#include <utility>

#include "helper/application_context.h"
#include "helper/log_message.h"

NotificationListener::NotificationListener(CoalescedTask::Post post,
                                           platform::DeliveryThread thread)
    : answer_([this] { Answer(); },
              thread == platform::DeliveryThread::kMain ? nullptr : std::move(post)) {}

NotificationListener::~NotificationListener() = default;

void NotificationListener::observe() {
  observer_ = std::make_unique<platform::NotificationObserver>(
      kRefreshNotification, [this] { monitorProcess(); },
      [this](const std::string& problem) { KeepProblem(problem); });
}

void NotificationListener::mainThreadIsReady() { answer_.Allow(); }

void NotificationListener::monitorProcess() {
  {
    const platform::MutexLock lock(mutex_);
    refresh_ = true;
  }
  answer_.Request();
}

void NotificationListener::KeepProblem(const std::string& problem) {
  {
    const platform::MutexLock lock(mutex_);
    problem_ = problem;
  }
  answer_.Request();
}

void NotificationListener::Answer() {
  bool refresh = false;
  std::string problem;
  {
    const platform::MutexLock lock(mutex_);
    std::swap(refresh, refresh_);
    std::swap(problem, problem_);
  }
  if (!problem.empty()) LogText(tarn::DEBUG, "NotificationListener", problem.c_str());
  if (refresh) ApplicationContext::checkMemoryUsage();
}
