// Tests notifications between processes, as the suite and its helpers send them.

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "tests/platform/notification_service.h"
#include "tests/support/child_process.h"

namespace {

constexpr char kName[] = "com.velmora.crnc.CRNNotifier.Refresh";

std::unique_ptr<ChildProcess> Observer(const std::string& name, int count) {
  auto observer = std::make_unique<ChildProcess>(
      std::vector<std::string>{NOTIFICATION_PROBE, "observe", name, std::to_string(count)},
      ChildProcess::Options());
  std::string line;
  EXPECT_TRUE(observer->ReadLine(line));
  EXPECT_EQ(line, "observing");
  return observer;
}

int Post(const std::vector<std::string>& names) {
  std::vector<std::string> command = {NOTIFICATION_PROBE, "post"};
  command.insert(command.end(), names.begin(), names.end());
  return ChildProcess(command, {}).Wait();
}

void ExpectReceived(ChildProcess& observer) {
  std::string line;
  EXPECT_TRUE(observer.ReadLine(line));
  EXPECT_EQ(line, "received");
}

void ExpectEnd(ChildProcess& observer) {
  std::string line;
  EXPECT_FALSE(observer.ReadLine(line)) << line;
  EXPECT_EQ(observer.Wait(), 0);
}

TEST(NotificationProcessesTest, EveryObserverReceivesPostOfOtherProcess) {
  NotificationService service;
  const auto first = Observer(kName, 2);
  const auto second = Observer(kName, 2);
  service.WaitForObservers(2);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Post({kName}), 0);
    ExpectReceived(*first);
    ExpectReceived(*second);
  }
  ExpectEnd(*first);
  ExpectEnd(*second);
}

TEST(NotificationProcessesTest, IgnoresOtherNames) {
  NotificationService service;
  const auto observer = Observer(kName, 2);
  const auto other = Observer("com.velmora.crnc.CRNNotifier.Refreshed", 1);
  service.WaitForObservers(2);
  // `observer` would receive these before the notifications that follow.
  EXPECT_EQ(Post({"com.velmora.crnc.CRNNotifier.Refreshed", "com.velmora.crnc.Refresh"}), 0);
  ExpectReceived(*other);
  ExpectEnd(*other);
  EXPECT_EQ(Post({kName}), 0);
  ExpectReceived(*observer);
  EXPECT_EQ(Post({kName}), 0);
  ExpectReceived(*observer);
  ExpectEnd(*observer);
}

TEST(NotificationProcessesTest, EndedObserverDoesNotBlockOthers) {
  NotificationService service;
  const auto first = Observer(kName, 1);
  const auto second = Observer(kName, 2);
  service.WaitForObservers(2);
  EXPECT_EQ(Post({kName}), 0);
  ExpectReceived(*first);
  ExpectEnd(*first);
  ExpectReceived(*second);
  EXPECT_EQ(Post({kName}), 0);
  ExpectReceived(*second);
  ExpectEnd(*second);
}

TEST(NotificationProcessesTest, RejectsInvalidText) {
  const NotificationService service;
  EXPECT_EQ(Post({"com.velmora.crnc.CRNNotifier.Refresh\xff"}), 1);
  EXPECT_EQ(Post({""}), 1);
}

}  // namespace
