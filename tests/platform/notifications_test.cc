#include "platform/notifications.h"

#include <gtest/gtest.h>
#include <sys/time.h>
#include <condition_variable>
#include <csignal>
#include <future>
#include <mutex>
#include <string>
#include <vector>

#include "tests/support/session_bus.h"

namespace {

constexpr char kName[] = "com.velmora.crnc.CRNNotifier.Refresh";

// Counts an observer's calls, and waits for them.
class Listener {
 public:
  std::function<void()> receive() {
    return [this] {
      const std::lock_guard<std::mutex> guard(mutex_);
      ++received_;
      changed_.notify_all();
    };
  }
  std::function<void(const std::string&)> report() {
    return [this](const std::string& problem) {
      const std::lock_guard<std::mutex> guard(mutex_);
      problems_.push_back(problem);
      changed_.notify_all();
    };
  }

  void WaitForNotifications(int count) {
    std::unique_lock<std::mutex> guard(mutex_);
    changed_.wait(guard, [&] { return received_ >= count; });
  }
  void WaitForProblems(std::size_t count) {
    std::unique_lock<std::mutex> guard(mutex_);
    changed_.wait(guard, [&] { return problems_.size() >= count; });
  }

  // Must be called after the observer's end.
  int received() const { return received_; }
  const std::vector<std::string>& problems() const { return problems_; }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int received_ = 0;
  std::vector<std::string> problems_;
};

TEST(NotificationsTest, EveryObserverReceivesNotificationOnce) {
  SessionBus bus;
  Listener one;
  Listener two;
  {
    const platform::NotificationObserver first(kName, one.receive(), one.report());
    const platform::NotificationObserver second(kName, two.receive(), two.report());
    bus.WaitForObservers(2);
    for (int count = 1; count <= 2; ++count) {
      EXPECT_TRUE(platform::PostNotification(kName));
      one.WaitForNotifications(count);
      two.WaitForNotifications(count);
    }
  }
  EXPECT_EQ(one.received(), 2);
  EXPECT_EQ(two.received(), 2);
  EXPECT_TRUE(one.problems().empty());
}

TEST(NotificationsTest, IgnoresOtherNames) {
  SessionBus bus;
  Listener listener;
  {
    const platform::NotificationObserver observer(kName, listener.receive(), listener.report());
    bus.WaitForObservers(1);
    EXPECT_TRUE(platform::PostNotification("com.velmora.crnc.CRNNotifier.Refreshed"));
    EXPECT_TRUE(platform::PostNotification("com.velmora.crnc.CRNNotifier2.Refresh"));
    EXPECT_TRUE(platform::PostNotification("com.velmora.crnc.Refresh"));
    EXPECT_TRUE(platform::PostNotification(kName));
    listener.WaitForNotifications(1);
  }
  EXPECT_EQ(listener.received(), 1);
}

TEST(NotificationsTest, IgnoresContentAndSender) {
  SessionBus bus;
  Listener listener;
  {
    const platform::NotificationObserver observer(kName, listener.receive(), listener.report());
    bus.WaitForObservers(1);
    bus.SendSignal("/", "com.velmora.crnc.CRNNotifier", "Refresh");
    listener.WaitForNotifications(1);
    bus.SendSignal("/some/where/else", "com.velmora.crnc.CRNNotifier", "Refresh", "argument");
    listener.WaitForNotifications(2);
    bus.SendSignal("/com/velmora/crnc/CRNNotifier", "com.velmora.crnc.Other", "Refresh");
    bus.SendRefresh();
    listener.WaitForNotifications(3);
  }
  EXPECT_EQ(listener.received(), 3);
}

TEST(NotificationsTest, RejectsInvalidName) {
  const SessionBus bus;
  for (const char* const name : {"", ".", "Refresh", "com.", ".Refresh", "a.Refresh",
                                 "a..b.Refresh", "a.b.Re-fresh", "a.b.\xff", "a b.c.Refresh"}) {
    EXPECT_FALSE(platform::PostNotification(name)) << name;
    Listener listener;
    { const platform::NotificationObserver observer(name, listener.receive(), listener.report()); }
    EXPECT_EQ(listener.problems().size(), 1U) << name;
  }
}

TEST(NotificationsTest, ReportsMissingServiceOnce) {
  SessionBus bus;
  bus.Stop();
  Listener listener;
  {
    const platform::NotificationObserver observer(kName, listener.receive(), listener.report());
    listener.WaitForProblems(1);
    EXPECT_FALSE(platform::PostNotification(kName));
    bus.Start();
    bus.WaitForObservers(1);  // the observer has retried
    EXPECT_TRUE(platform::PostNotification(kName));
    listener.WaitForNotifications(1);
  }
  EXPECT_EQ(listener.problems().size(), 1U);
}

TEST(NotificationsTest, ReportsEnvironmentWithoutService) {
  const ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", nullptr);
  const ScopedVariable runtime("XDG_RUNTIME_DIR", nullptr);
  Listener listener;
  const platform::NotificationObserver observer(kName, listener.receive(), listener.report());
  listener.WaitForProblems(1);
}

TEST(NotificationsTest, MergesPendingNotifications) {
  SessionBus bus;
  Listener listener;
  std::promise<void> sent;
  bool waited = false;
  {
    const platform::NotificationObserver observer(
        kName,
        [&, receive = listener.receive()] {
          receive();
          if (!waited) sent.get_future().wait();
          waited = true;
        },
        listener.report());
    bus.WaitForObservers(1);
    bus.SendRefresh();
    listener.WaitForNotifications(1);
    bus.SendRefresh(100);
    sent.set_value();
    listener.WaitForNotifications(2);
    bus.SendRefresh();
    listener.WaitForNotifications(3);
  }
  EXPECT_EQ(listener.received(), 3);
}

TEST(NotificationsTest, ReportsInvalidAddress) {
  const ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", "%%no address%%");
  Listener listener;
  EXPECT_FALSE(platform::PostNotification(kName));
  const platform::NotificationObserver observer(kName, listener.receive(), listener.report());
  listener.WaitForProblems(1);
}

TEST(NotificationsTest, RefusesServiceOtherThanLocalSocket) {
  for (const char* const address : {"tcp:host=localhost,port=1", "unixexec:path=/bin/cat",
                                    "unix:path=/nonexistent;tcp:host=localhost,port=1"}) {
    const ScopedVariable variable("DBUS_SESSION_BUS_ADDRESS", address);
    Listener listener;
    EXPECT_FALSE(platform::PostNotification(kName));
    {
      const platform::NotificationObserver observer(kName, listener.receive(), listener.report());
      listener.WaitForProblems(1);
    }
    EXPECT_EQ(listener.problems(),
              std::vector<std::string>{"the session bus is out of reach: Protocol not supported"});
  }
}

TEST(NotificationsTest, PostsDespiteSystemSignals) {
  const SessionBus bus;
  struct sigaction ignoring {};
  struct sigaction before {};
  ignoring.sa_handler = [](int) {};  // without SA_RESTART
  ASSERT_EQ(sigaction(SIGALRM, &ignoring, &before), 0);
  const itimerval every{{0, 100}, {0, 100}};
  ASSERT_EQ(setitimer(ITIMER_REAL, &every, nullptr), 0);
  int posted = 0;
  for (int i = 0; i < 20; ++i)
    posted += platform::PostNotification(kName) ? 1 : 0;
  const itimerval never{};
  EXPECT_EQ(setitimer(ITIMER_REAL, &never, nullptr), 0);
  EXPECT_EQ(sigaction(SIGALRM, &before, nullptr), 0);
  EXPECT_EQ(posted, 20);
}

TEST(NotificationsTest, ReconnectsToLostService) {
  SessionBus bus;
  Listener listener;
  {
    const platform::NotificationObserver observer(kName, listener.receive(), listener.report());
    for (int round = 1; round <= 3; ++round) {
      bus.WaitForObservers(1);
      EXPECT_TRUE(platform::PostNotification(kName));
      listener.WaitForNotifications(round);
      bus.Stop();
      listener.WaitForProblems(static_cast<std::size_t>(round));
      bus.Start();
    }
  }
  EXPECT_EQ(listener.received(), 3);
}

TEST(NotificationsTest, ObserverEndsWhileServiceHangs) {
  SessionBus bus;
  Listener listener;
  bus.Suspend();
  {
    const platform::NotificationObserver in_the_beginning(kName, listener.receive(),
                                                          listener.report());
    EXPECT_FALSE(platform::PostNotification(kName));
  }
  bus.Resume();
  {
    const platform::NotificationObserver later(kName, listener.receive(), listener.report());
    bus.WaitForObservers(1);
    bus.Suspend();
  }
}

TEST(NotificationsTest, ObserverEndsDuringFlood) {
  SessionBus bus;
  Listener listener;
  const platform::NotificationObserver lasting(kName, listener.receive(), listener.report());
  bus.WaitForObservers(1);
  for (int observers = 2; observers < 10; ++observers) {
    const platform::NotificationObserver observer(kName, listener.receive(), listener.report());
    bus.WaitForObservers(observers);
    bus.SendRefresh(100);
  }
  listener.WaitForNotifications(1);
}

}  // namespace
