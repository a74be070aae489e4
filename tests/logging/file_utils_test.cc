#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <filesystem>

#include "logging/log_utils.h"
#include "support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_home.h"

namespace {

class FileUtilsTest : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.path() + "/" + name; }

  const TemporaryFolder folder_;
};

TEST_F(FileUtilsTest, FilesAndFoldersAreToldApart) {
  std::string file = Path("file");
  std::string missing = Path("missing");
  std::string folder = folder_.path();
  WriteFile(file, "");
  EXPECT_TRUE(tarn::fileExistsAtPath(file));
  EXPECT_FALSE(tarn::fileExistsAtPath(folder));
  EXPECT_FALSE(tarn::fileExistsAtPath(missing));
  EXPECT_TRUE(tarn::folderExitsAtPath(folder));
  EXPECT_FALSE(tarn::folderExitsAtPath(file));
  EXPECT_FALSE(tarn::folderExitsAtPath(missing));
}

TEST_F(FileUtilsTest, FoldersAreCreatedWithTheirParents) {
  EXPECT_TRUE(tarn::createDirectoryPath(Path("a/b/c")));
  EXPECT_TRUE(tarn::folderExitsAtPath(Path("a/b/c")));
  EXPECT_TRUE(tarn::createDirectoryPath(Path("a/b/c")));
  EXPECT_TRUE(tarn::createDirectoryPath(Path("a/b//d/")));
  EXPECT_TRUE(tarn::folderExitsAtPath(Path("a/b/d")));
}

TEST_F(FileUtilsTest, FolderIsNotCreatedInPlaceOfAFileOrBelowOne) {
  WriteFile(Path("file"), "");
  EXPECT_FALSE(tarn::createDirectoryPath(Path("file")));
  EXPECT_FALSE(tarn::createDirectoryPath(Path("file/below")));
  EXPECT_FALSE(tarn::createDirectoryPath(""));
}

TEST_F(FileUtilsTest, SizeIsInBytes) {
  long long size = -1;
  EXPECT_FALSE(tarn::getFileSize(Path("missing"), size));
  EXPECT_EQ(size, -1);
  WriteFile(Path("file"), std::string(5000, 'x'));
  EXPECT_TRUE(tarn::getFileSize(Path("file"), size));
  EXPECT_EQ(size, 5000);
}

TEST_F(FileUtilsTest, ContentsAreCopiedAtEverySizeAroundABlock) {
  for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 8192U, 100000U}) {
    std::string content(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
      content[i] = static_cast<char>(i * 7);
    WriteFile(Path("from"), content);
    WriteFile(Path("to"), "something longer that was there before" + content);
    EXPECT_TRUE(tarn::copyContentOfFileToFile(Path("from"), Path("to")));
    EXPECT_EQ(ReadFile(Path("to")), content) << size;
  }
}

TEST_F(FileUtilsTest, CopyFailsWhenAFileCannotBeUsed) {
  WriteFile(Path("from"), "text");
  EXPECT_FALSE(tarn::copyContentOfFileToFile(Path("missing"), Path("to")));
  EXPECT_FALSE(std::filesystem::exists(Path("to")));
  EXPECT_FALSE(tarn::copyContentOfFileToFile(Path("from"), Path("no/such/folder")));
  EXPECT_FALSE(tarn::copyContentOfFileToFile(folder_.path(), Path("to")));
  EXPECT_FALSE(tarn::copyContentOfFileToFile(Path("from"), "/dev/full"));
}

TEST(FolderUtilsTest, HomeOfTheUserIsTheVariables) {
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

TEST(FolderUtilsTest, LogFolderIsCreatedForTheUserAlone) {
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

TEST(FolderUtilsTest, WithoutAPlaceForItThereIsNoLogFolder) {
  const TestHome home;
  WriteFile(home.path() + "/Library", "");
  std::string path = "before";
  EXPECT_FALSE(tarn::getTempPath(path));
  EXPECT_EQ(path, "before");
}

}  // namespace
