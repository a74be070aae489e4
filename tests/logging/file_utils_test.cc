#include "logging/file_utils.h"

#include <gtest/gtest.h>
#include <filesystem>

#include "support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

class FileUtilsTest : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.path() + "/" + name; }

  const TemporaryFolder folder_;
};

TEST_F(FileUtilsTest, DistinguishesFilesAndFolders) {
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

TEST_F(FileUtilsTest, SizeIsInBytes) {
  long long size = -1;
  EXPECT_FALSE(tarn::getFileSize(Path("missing"), size));
  EXPECT_EQ(size, -1);
  WriteFile(Path("file"), std::string(5000, 'x'));
  EXPECT_TRUE(tarn::getFileSize(Path("file"), size));
  EXPECT_EQ(size, 5000);
}

TEST_F(FileUtilsTest, CopiesContentsAtEverySizeAroundBlock) {
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

TEST_F(FileUtilsTest, CopyFailsWhenFileCannotBeUsed) {
  WriteFile(Path("from"), "text");
  EXPECT_FALSE(tarn::copyContentOfFileToFile(Path("missing"), Path("to")));
  EXPECT_FALSE(std::filesystem::exists(Path("to")));
  EXPECT_FALSE(tarn::copyContentOfFileToFile(Path("from"), Path("no/such/folder")));
  EXPECT_FALSE(tarn::copyContentOfFileToFile(folder_.path(), Path("to")));
  EXPECT_FALSE(tarn::copyContentOfFileToFile(Path("from"), "/dev/full"));
}

}  // namespace
