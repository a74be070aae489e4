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

TEST(HomeVariableTest, IsCreatedIfMissing) {
  const TestHome home;
  const ScopedVariable variable("HOME", (home.path() + "/new").c_str());
  std::string path;
  EXPECT_TRUE(platform::GetHomeFolder(path));
  EXPECT_TRUE(std::filesystem::is_directory(home.path() + "/new"));
}

}  // namespace
