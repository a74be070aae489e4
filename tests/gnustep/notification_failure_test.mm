// Tests the seam with a notification center that raises exceptions. Makes no calls to its service.

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/notifications.h"
#include "tests/gnustep/replaced_method.h"

namespace {

constexpr char kName[] = "com.velmora.crnc.CRNNotifier.Refresh";

void Raise() { [NSException raise:@"SomeException" format:@"nobody is there"]; }

void RaisingPost(id, SEL, NSString*, NSString*, NSDictionary*, BOOL) { Raise(); }

void RaisingAddition(id, SEL, id, SEL, NSString*, NSString*) { Raise(); }

std::vector<std::string> ProblemsOfObserving(const std::string& name) {
  std::vector<std::string> problems;
  const platform::NotificationObserver observer(
      name, [] {}, [&](const std::string& problem) { problems.push_back(problem); });
  return problems;
}

TEST(NotificationFailureTest, PostFailsWhenServiceIsUnreachable) {
  const ReplacedMethod post([NSDistributedNotificationCenter class],
                            @selector(postNotificationName:object:userInfo:deliverImmediately:),
                            reinterpret_cast<IMP>(RaisingPost));
  EXPECT_FALSE(platform::PostNotification(kName));
}

TEST(NotificationFailureTest, ReportsUnreachableServiceOnce) {
  const ReplacedMethod addition([NSDistributedNotificationCenter class],
                                @selector(addObserver:selector:name:object:),
                                reinterpret_cast<IMP>(RaisingAddition));
  EXPECT_EQ(ProblemsOfObserving(kName),
            std::vector<std::string>{"the notification centre is out of reach: nobody is there"});
}

TEST(NotificationFailureTest, ReportsInvalidName) {
  for (const char* const name : {"", "a.b.\xff"}) {
    EXPECT_FALSE(platform::PostNotification(name));
    EXPECT_EQ(ProblemsOfObserving(name).size(), 1U);
  }
}

}  // namespace
