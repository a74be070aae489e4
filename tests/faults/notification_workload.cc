// Posts a notification until it has received it itself, or until its observer or the bus refuses.
// Exit status: 0, or 3 when descriptors are left open.

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>

#include "platform/notifications.h"
#include "tests/faults/descriptors.h"

namespace {

constexpr char kName[] = "com.velmora.crnc.CRNNotifier.Refresh";
constexpr int kMaxRefusals = 3;
// The observer may not have asked the bus for the notification yet.
constexpr std::chrono::milliseconds kBetweenPosts(10);

class Answer {
 public:
  void Come() {
    const std::lock_guard<std::mutex> guard(mutex_);
    has_come_ = true;
    changed_.notify_all();
  }
  bool Wait() {
    std::unique_lock<std::mutex> guard(mutex_);
    return changed_.wait_for(guard, kBetweenPosts, [this] { return has_come_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool has_come_ = false;
};

void ObserveAndPost() {
  Answer answer;
  const platform::NotificationObserver observer(
      kName, [&] { answer.Come(); }, [&](const std::string& /*problem*/) { answer.Come(); });
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
