#include "platform/home_folder.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include "tests/support/test_home.h"

namespace {

std::string HomeInUserDatabase(uid_t user) {
  const passwd* const entry = getpwuid(user);
  return entry ? entry->pw_dir : "";
}

TEST(HomeFolderTest, ComesFromUserDatabaseWithoutVariable) {
  const std::string expected = HomeInUserDatabase(geteuid());
  if (expected.empty()) GTEST_SKIP() << "this user is not in the database";
  for (const char* const value : {static_cast<const char*>(nullptr), ""}) {
    const ScopedVariable variable("HOME", value);
    std::string path;
    EXPECT_TRUE(platform::GetHomeFolder(path));
    EXPECT_EQ(path, expected);
  }
}

TEST(HomeFolderTest, ComesFromUserDatabaseForBorrowedIdentity) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can take on another identity";
  const passwd* const nobody = getpwnam("nobody");
  ASSERT_NE(nobody, nullptr);
  const std::string expected = nobody->pw_dir;
  const TestHome home;
  ASSERT_EQ(seteuid(nobody->pw_uid), 0);
  std::string path;
  const bool found = platform::GetHomeFolder(path);
  ASSERT_EQ(seteuid(0), 0);
  EXPECT_TRUE(found);
  EXPECT_EQ(path, expected);
}

}  // namespace
