// Where the environment says what the home folder is.

#include <gtest/gtest.h>
#include <filesystem>

#include "platform/home_folder.h"
#include "tests/support/test_home.h"

namespace {

TEST(HomeVariableTest, IsTheOneOfTheEnvironment) {
  const TestHome home;
  std::string path;
  EXPECT_TRUE(platform::GetHomeFolder(path));
  EXPECT_EQ(path, home.path());
}

TEST(HomeVariableTest, HasNoSlashAtItsEnd) {
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

}  // namespace
