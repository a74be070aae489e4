// Posts a notification until its own observer has received it, or until the observer or the bus
// fails. Exit status: 0, or 3 when descriptors are still open.

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>

#include "platform/notifications.h"
#include "tests/faults/descriptors.h"

namespace {

constexpr char kName[] = "com.velmora.crnc.CRNNotifier.Refresh";
constexpr int kMaxRefusals = 3;
// The observer might not have subscribed to the notification before the first posts.
constexpr std::chrono::milliseconds kInterval(10);

class Answer {
 public:
  void Notify() {
    const std::lock_guard<std::mutex> guard(mutex_);
    has_arrived_ = true;
    changed_.notify_all();
  }
  bool Wait() {
    std::unique_lock<std::mutex> guard(mutex_);
    return changed_.wait_for(guard, kInterval, [this] { return has_arrived_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool has_arrived_ = false;
};

void ObserveAndPost() {
  Answer answer;
  const platform::NotificationObserver observer(
      kName, [&] { answer.Notify(); }, [&](const std::string& /*problem*/) { answer.Notify(); });
  int refusals = 0;
  while (refusals < kMaxRefusals && !answer.Wait())
    refusals += platform::PostNotification(kName) ? 0 : 1;
}

}  // namespace

int main() {
  const int descriptors = OpenDescriptors();
  ObserveAndPost();
  return OpenDescriptors() == descriptors ? 0 : 3;
}
