#include "platform/console_user.h"

#include <gtest/gtest.h>
#include <pwd.h>

namespace {

TEST(ConsoleUserTest, IsUserOfThisMachineOrNobody) {
  constexpr uid_t kUntouched = 4242424;
  uid_t user = kUntouched;
  gid_t group = kUntouched;
  if (platform::GetConsoleUser(user, group)) {
    const passwd* const entry = getpwuid(user);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(group, entry->pw_gid);
  } else {
    EXPECT_EQ(user, kUntouched);
    EXPECT_EQ(group, kUntouched);
  }
}

}  // namespace
