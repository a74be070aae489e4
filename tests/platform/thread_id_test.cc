#include "platform/thread_id.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <thread>

namespace {

TEST(ThreadIdTest, IsUniqueInEachThread) {
  const unsigned long long own = platform::GetThreadId();
  unsigned long long other = 0;
  unsigned long long other_again = 0;
  std::thread([&] {
    other = platform::GetThreadId();
    other_again = platform::GetThreadId();
  }).join();
  EXPECT_NE(own, 0U);
  EXPECT_NE(other, 0U);
  EXPECT_NE(own, other);
  EXPECT_EQ(other, other_again);
  EXPECT_EQ(own, platform::GetThreadId());
}

TEST(ThreadIdTest, DiffersInForkedProcess) {
  const unsigned long long own = platform::GetThreadId();
  const pid_t child = fork();
  ASSERT_NE(child, -1);
  if (child == 0) _exit(platform::GetThreadId() == own ? 1 : 0);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
}

TEST(ThreadIdTest, ExistsOnCurrentSystems) { EXPECT_TRUE(platform::HasThreadId(10, 15)); }

}  // namespace
