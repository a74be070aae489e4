#include "helper/notification_listener.h"

#include <gmock/gmock.h>
#include <sys/mman.h>
#include <unistd.h>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "helper/application_context.h"
#include "support/files.h"
#include "tests/support/banners.h"
#include "tests/support/process_pool.h"
#include "tests/support/session_bus.h"
#include "tests/support/test_home.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

// Raises the memory of this process above the limit, by less than half the limit, until it ends.
void UseMuchMemory() {
  ASSERT_NE(mmap(nullptr, 600 << 20, PROT_READ | PROT_WRITE,
                 MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0),
            MAP_FAILED);
}

class NotificationListenerTest : public testing::Test {
 protected:
  // Runs `body` with an application context in a separate process, which the watchdog must end.
  // Then runs `action` in this process.
  static void ExpectEndWithStatusOne(
      const std::function<void()>& body, const std::function<void()>& action = [] {}) {
    ProcessPool pool;
    pool.Start([&] {
      ApplicationContext::instance();
      body();
      return true;
    });
    action();
    EXPECT_EQ(pool.WaitForAll(), "a process ended with status 1");
  }

  std::vector<std::string> Lines() const { return ReadLines(home_.helper_log()); }

  const TestHome home_;
  SessionBus bus_;
};

TEST_F(NotificationListenerTest, KeepsSmallProcessRunning) {
  ApplicationContext::instance();
  ApplicationContext::checkMemoryUsage();
  EXPECT_THAT(Lines(), ElementsAre(EndsWith(kStartBanner)));
  ApplicationContext::destroy();
}

TEST_F(NotificationListenerTest, CheckCreatesContextAfterDestroy) {
  ApplicationContext::instance();
  ApplicationContext::destroy();
  ApplicationContext::checkMemoryUsage();
  EXPECT_THAT(Lines(),
              ElementsAre(EndsWith(kStartBanner), EndsWith(kEndBanner), EndsWith(kStartBanner)));
  ApplicationContext::destroy();
}

TEST_F(NotificationListenerTest, CheckEndsLargeProcessAndNotifiesSuite) {
  ExpectEndWithStatusOne([] {
    UseMuchMemory();
    ApplicationContext::checkMemoryUsage();
  });
  bus_.WaitForAnalytics(1);
  const std::vector<std::string> lines = Lines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_THAT(lines[1],
              testing::ContainsRegex("\\| \\[WARN\\] \\| [0-9]+ \\| HXPL \\| HexHelper \\| "
                                     "ApplicationContext \\|  \\|  \\| [0-9]+ \\| "
                                     "Memory Limit Reached: [67][0-9][0-9] MB\\. Quitting !!$"));
  EXPECT_THAT(lines[2], EndsWith(kEndBanner));
}

TEST_F(NotificationListenerTest, CheckEndsLargeProcessWithoutBus) {
  bus_.Stop();
  ExpectEndWithStatusOne([] {
    UseMuchMemory();
    ApplicationContext::checkMemoryUsage();
  });
  EXPECT_THAT(Lines(),
              ElementsAre(EndsWith(kStartBanner), HasSubstr("Quitting !!"), EndsWith(kEndBanner)));
}

TEST_F(NotificationListenerTest, ChecksOnReceivingThreadWithoutPost) {
  ExpectEndWithStatusOne(
      [] {
        UseMuchMemory();
        NotificationListener listener;
        listener.observe();
        for (;;)
          pause();
      },
      [this] {
        bus_.WaitForObservers(1);
        bus_.SendRefresh();
      });
  EXPECT_THAT(Lines(),
              ElementsAre(EndsWith(kStartBanner), HasSubstr("Quitting !!"), EndsWith(kEndBanner)));
}

TEST_F(NotificationListenerTest, AnswersAtOnceOnMainThread) {
  ExpectEndWithStatusOne([] {
    UseMuchMemory();
    NotificationListener listener([](const std::function<void()>& /*task*/) { return true; },
                                  platform::DeliveryThread::kMain);
    listener.monitorProcess();  // long before mainThreadIsReady()
  });
  EXPECT_THAT(Lines(),
              ElementsAre(EndsWith(kStartBanner), HasSubstr("Quitting !!"), EndsWith(kEndBanner)));
}

TEST_F(NotificationListenerTest, AnswersByTaskFromPrivateThread) {
  ApplicationContext::instance();
  std::vector<std::function<void()>> tasks;
  NotificationListener listener(
      [&](std::function<void()> task) {
        tasks.push_back(std::move(task));
        return true;
      },
      platform::DeliveryThread::kPrivate);
  listener.mainThreadIsReady();
  listener.monitorProcess();
  ASSERT_EQ(tasks.size(), 1U);
  tasks[0]();
  ApplicationContext::destroy();
}

TEST_F(NotificationListenerTest, LogsMissingBusOnceAtDebugLevel) {
  bus_.Stop();
  std::filesystem::create_directories(home_.logs());
  WriteFile(home_.logs() + "/TARN.debug", "");
  ApplicationContext::instance();
  {
    NotificationListener listener;
    listener.observe();
    while (Lines().size() < 2)
      std::this_thread::yield();
    bus_.Start();
    bus_.WaitForObservers(1);  // the second attempt of the listener
  }
  ApplicationContext::destroy();
  EXPECT_THAT(Lines(),
              ElementsAre(EndsWith(kStartBanner),
                          AllOf(HasSubstr("| [DEBUG] |"), HasSubstr("| NotificationListener |"),
                                EndsWith("| the session bus is out of reach: No such file or "
                                         "directory")),
                          EndsWith(kEndBanner)));
}

TEST_F(NotificationListenerTest, AnswersOnlyAfterMainThreadIsReady) {
  ApplicationContext::instance();
  std::mutex mutex;
  std::condition_variable posted;
  std::vector<std::function<void()>> tasks;
  NotificationListener listener([&](std::function<void()> task) {
    const std::lock_guard<std::mutex> guard(mutex);
    tasks.push_back(std::move(task));
    posted.notify_one();
    return true;
  });
  listener.observe();
  bus_.WaitForObservers(1);
  bus_.SendRefresh(5);
  listener.mainThreadIsReady();
  std::unique_lock<std::mutex> guard(mutex);
  posted.wait(guard, [&] { return !tasks.empty(); });
  EXPECT_EQ(tasks.size(), 1U);
  guard.unlock();
  tasks[0]();
  ApplicationContext::destroy();
}

}  // namespace
