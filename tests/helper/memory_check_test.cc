// Tests the memory check with exact values, which a replacement for the platform function reports.

#include <gmock/gmock.h>
#include <optional>
#include <string>
#include <vector>

#include "helper/application_context.h"
#include "platform/process_memory.h"
#include "support/files.h"
#include "tests/support/banners.h"
#include "tests/support/process_pool.h"
#include "tests/support/session_bus.h"
#include "tests/support/test_home.h"

namespace {

// The reading fails if this is empty.
std::optional<unsigned long long> g_memory;

}  // namespace

namespace platform {

// Replaces the system's function.
bool GetDirtiedMemory(unsigned long long& bytes) {
  if (g_memory) bytes = *g_memory;
  return g_memory.has_value();
}

}  // namespace platform

namespace {

using testing::ElementsAre;
using testing::EndsWith;

constexpr unsigned long long kLimit = 524288000;

class MemoryCheckTest : public testing::Test {
 protected:
  // Runs the check in a separate process. Returns how the process ended; empty for success.
  static std::string Check(std::optional<unsigned long long> memory) {
    ProcessPool pool;
    pool.Start([memory] {
      g_memory = memory;
      ApplicationContext::checkMemoryUsage();
      ApplicationContext::destroy();
      return true;
    });
    return pool.WaitForAll();
  }

  std::vector<std::string> Lines() const { return ReadLines(home_.helper_log()); }

  const TestHome home_;
  SessionBus bus_;
};

TEST_F(MemoryCheckTest, ContinuesWhenReadingFails) {
  EXPECT_EQ(Check(std::nullopt), "");
  EXPECT_THAT(Lines(), ElementsAre(EndsWith(kStartBanner), EndsWith(kEndBanner)));
}

TEST_F(MemoryCheckTest, ContinuesBelowLimit) {
  for (const unsigned long long memory : {0ULL, kLimit - 1}) {
    EXPECT_EQ(Check(memory), "") << memory;
  }
}

TEST_F(MemoryCheckTest, ExitsAtLimit) {
  EXPECT_EQ(Check(kLimit), "a process ended with status 1");
  EXPECT_THAT(Lines(), ElementsAre(EndsWith(kStartBanner),
                                   EndsWith(" | Memory Limit Reached: 500 MB. Quitting !!"),
                                   EndsWith(kEndBanner)));
}

TEST_F(MemoryCheckTest, PostsNotificationWithoutArguments) {
  ASSERT_EQ(Check(kLimit), "a process ended with status 1");
  bus_.WaitForAnalytics(1);
  EXPECT_EQ(bus_.analytics_arguments(), "");
}

}  // namespace
