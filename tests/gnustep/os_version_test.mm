#include "platform/os_version.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#import <objc/runtime.h>

#include "tests/gnustep/gestalt_version.h"
#include "tests/support/process_pool.h"

namespace {

struct Version {
  NSInteger major;
  NSInteger minor;
  NSInteger patch;
};

Version AnsweredVersion(id /*process*/, SEL /*name*/) { return {10, 15, 7}; }

void ExpectVersion(long long major, long long minor, long long patch) {
  long long found[3] = {-1, -1, -1};
  EXPECT_TRUE(platform::GetOSVersion(found[0], found[1], found[2]));
  EXPECT_EQ(found[0], major);
  EXPECT_EQ(found[1], minor);
  EXPECT_EQ(found[2], patch);
}

class OSVersionTest : public testing::Test {
 protected:
  ~OSVersionTest() override { g_gestalt_answers = {}; }
};

TEST_F(OSVersionTest, ComesFromGestaltOnOlderSystems) { ExpectVersion(10, 9, 5); }

TEST_F(OSVersionTest, ReturnsFalseWhenGestaltFails) {
  g_gestalt_answers.available = false;
  long long numbers[3] = {-1, -2, -3};
  EXPECT_FALSE(platform::GetOSVersion(numbers[0], numbers[1], numbers[2]));
  EXPECT_EQ(numbers[0], -1);
  EXPECT_EQ(numbers[1], -2);
  EXPECT_EQ(numbers[2], -3);
}

TEST_F(OSVersionTest, ComesFromProcessInfoWhenSupported) {
  // An added method cannot be removed, so the test runs in its own process.
  ProcessPool pool;
  pool.Start([] {
    EXPECT_TRUE(class_addMethod([NSProcessInfo class],
                                NSSelectorFromString(@"operatingSystemVersion"),
                                reinterpret_cast<IMP>(AnsweredVersion), "{Version=qqq}@:"));
    g_gestalt_answers.available = false;
    ExpectVersion(10, 15, 7);
    return !HasFailure();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
}

}  // namespace
