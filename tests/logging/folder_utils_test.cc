#include "logging/folder_utils.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <filesystem>

#include "support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_home.h"

namespace {

class CreateDirectoryPathTest : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.path() + "/" + name; }

  const TemporaryFolder folder_;
};

TEST_F(CreateDirectoryPathTest, CreatesMissingParents) {
  EXPECT_TRUE(tarn::createDirectoryPath(Path("a/b/c")));
  EXPECT_TRUE(std::filesystem::is_directory(Path("a/b/c")));
  EXPECT_TRUE(tarn::createDirectoryPath(Path("a/b/c")));
  EXPECT_TRUE(tarn::createDirectoryPath(Path("a/b//d/")));
  EXPECT_TRUE(std::filesystem::is_directory(Path("a/b/d")));
}

TEST_F(CreateDirectoryPathTest, FailsAtAndBelowFile) {
  WriteFile(Path("file"), "");
  EXPECT_FALSE(tarn::createDirectoryPath(Path("file")));
  EXPECT_FALSE(tarn::createDirectoryPath(Path("file/below")));
  EXPECT_FALSE(tarn::createDirectoryPath(""));
}

TEST(FolderUtilsTest, HomeIsValueOfVariable) {
  const TestHome home;
  std::string path;
  EXPECT_TRUE(tarn::getUserFolderPath(path));
  EXPECT_EQ(path, home.path());
  EXPECT_TRUE(tarn::getUserFolder(path));
  EXPECT_EQ(path, home.path());
}

TEST(FolderUtilsTest, MissingHomeIsCreatedForUserAlone) {
  const TestHome home;
  const std::string missing = home.path() + "/missing";
  const ScopedVariable variable("HOME", missing.c_str());
  std::string path;
  EXPECT_TRUE(tarn::getUserFolderPath(path));
  EXPECT_EQ(path, missing);
  EXPECT_EQ(ModeOf(missing), 0700);
}

TEST(FolderUtilsTest, LogFolderIsCreatedForUserAlone) {
  const TestHome home;
  std::string path;
  EXPECT_TRUE(tarn::getTempPath(path));
  EXPECT_EQ(path, home.logs());
  EXPECT_EQ(ModeOf(home.logs()), 0700);
  EXPECT_EQ(ModeOf(home.path() + "/Library"), 0700);
}

TEST(FolderUtilsTest, SearchForLogFolderCreatesNothing) {
  const TestHome home;
  std::string path;
  EXPECT_TRUE(tarn::findLogFolder(path));
  EXPECT_EQ(path, home.logs());
  EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

TEST(FolderUtilsTest, LogFolderThatExistsKeepsItsMode) {
  const TestHome home;
  std::filesystem::create_directories(home.logs());
  ASSERT_EQ(chmod(home.logs().c_str(), 0755), 0);
  std::string path;
  EXPECT_TRUE(tarn::getTempPath(path));
  EXPECT_EQ(ModeOf(home.logs()), 0755);
}

TEST(FolderUtilsTest, LogFolderFailsBelowFile) {
  const TestHome home;
  WriteFile(home.path() + "/Library", "");
  std::string path = "before";
  EXPECT_FALSE(tarn::getTempPath(path));
  EXPECT_EQ(path, "before");
}

}  // namespace
