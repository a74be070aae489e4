#include "logging/rotation.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <filesystem>

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

class RotationTest : public testing::Test {
 protected:
  bool KeptWith(const std::string& content) const {
    WriteFile(marker_, content);
    return tarn::KeepsAllCopies(folder_.path());
  }

  const TemporaryFolder folder_;
  const std::string marker_ = folder_.path() + "/pvx.trace";
};

TEST_F(RotationTest, MoreDetailedLevelsHaveLargerFiles) {
  EXPECT_EQ(tarn::SegmentSize(tarn::TRACE), 52428800);
  EXPECT_EQ(tarn::SegmentSize(tarn::DEBUG), 20971520);
  for (const tarn::Log_Level level : {tarn::INFO, tarn::WARN, tarn::ERROR, tarn::FATAL, tarn::NONE})
    EXPECT_EQ(tarn::SegmentSize(level), 10485760);
  EXPECT_EQ(tarn::SegmentSize(static_cast<tarn::Log_Level>(15)), 10485760);
}

TEST_F(RotationTest, MarkerHoldsNothingButItsText) {
  EXPECT_FALSE(tarn::KeepsAllCopies(folder_.path()));
  EXPECT_TRUE(KeptWith("keeplogs"));
  EXPECT_TRUE(KeptWith(std::string("keeplogs\0", 9)));
  EXPECT_TRUE(KeptWith(std::string("keeplogs\0more", 13)));
  EXPECT_FALSE(KeptWith("keeplogs\n"));
  EXPECT_FALSE(KeptWith("keeplogs2"));
  EXPECT_FALSE(KeptWith("keeplog"));
  EXPECT_FALSE(KeptWith("KEEPLOGS"));
  EXPECT_FALSE(KeptWith(" keeplogs"));
  EXPECT_FALSE(KeptWith(""));
}

TEST_F(RotationTest, MarkerThatIsNoFileSaysNothing) {
  std::filesystem::create_directory(marker_);
  EXPECT_FALSE(tarn::KeepsAllCopies(folder_.path()));
  std::filesystem::remove(marker_);
  ASSERT_EQ(mkfifo(marker_.c_str(), 0600), 0);
  EXPECT_FALSE(tarn::KeepsAllCopies(folder_.path()));
}

TEST_F(RotationTest, MarkerNeedNotBeWritable) {
  WriteFile(marker_, "keeplogs");
  ASSERT_EQ(chmod(marker_.c_str(), 0444), 0);
  EXPECT_TRUE(tarn::KeepsAllCopies(folder_.path()));
}

TEST_F(RotationTest, UnfinishedCopyIsNoCopyByItsName) {
  EXPECT_EQ(tarn::UnfinishedCopy("/logs/CRN.log"), "/logs/.CRN.log.rotating");
}

TEST_F(RotationTest, FileWithoutAnExtensionHasNoCopy) {
  std::string copy = "before";
  EXPECT_FALSE(tarn::NameOfCopy("/logs/CRN", copy));
  EXPECT_EQ(copy, "before");
}

}  // namespace
