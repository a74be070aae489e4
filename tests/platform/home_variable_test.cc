// Tests for systems that find the home folder through the environment or the user database alone.

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>
#include <filesystem>

#include "platform/home_folder.h"
#include "tests/support/test_home.h"

namespace {

TEST(HomeVariableTest, ComesFromEnvironment) {
  const TestHome home;
  std::string path;
  EXPECT_TRUE(platform::GetHomeFolder(path));
  EXPECT_EQ(path, home.path());
}

TEST(HomeVariableTest, HasNoTrailingSlash) {
  const TestHome home;
  const ScopedVariable variable("HOME", (home.path() + "//").c_str());
  std::string path;
  EXPECT_TRUE(platform::GetHomeFolder(path));
  EXPECT_EQ(path, home.path());
}

TEST(HomeVariableTest, NamesMissingFolderWithoutCreatingIt) {
  const TestHome home;
  const std::string missing = home.path() + "/missing";
  const ScopedVariable variable("HOME", missing.c_str());
  std::string path;
  EXPECT_TRUE(platform::GetHomeFolder(path));
  EXPECT_EQ(path, missing);
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST(HomeVariableTest, UnknownUserHasNoHome) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can take on another identity";
  constexpr uid_t kUnknown = 3999999999;
  ASSERT_EQ(getpwuid(kUnknown), nullptr);
  ASSERT_EQ(seteuid(kUnknown), 0);
  std::string path = "before";
  const bool found = platform::GetHomeFolder(path);
  ASSERT_EQ(seteuid(0), 0);
  EXPECT_FALSE(found);
  EXPECT_EQ(path, "before");
}

}  // namespace
