#include "logging/log_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <filesystem>
#include <fstream>

#include "support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

class LogFile : public testing::Test {
 protected:
  std::string Text() const { return ReadFile(path_); }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/test.log";
  std::fstream stream_;
  tarn::LogFile file_{stream_};
  tarn::LogFileLock lock_;
  const tarn::LogFileLock::Scope scope_{lock_, tarn::LogFileLock::HeldByCaller{}};
};

TEST_F(LogFile, AppendsLineWithNewline) {
  WriteFile(path_, "first\n");
  ASSERT_TRUE(file_.Open(path_));
  file_.Append("second");
  EXPECT_EQ(Text(), "first\nsecond\n");
}

TEST_F(LogFile, IsNotGoodBeforeOpenAndAfterClose) {
  EXPECT_FALSE(file_.good());
  ASSERT_TRUE(file_.Open(path_));
  EXPECT_TRUE(file_.good());
  file_.Close();
  EXPECT_FALSE(file_.good());
  file_.Append("dropped");
  ASSERT_TRUE(file_.Reopen());
  EXPECT_TRUE(file_.good());
  EXPECT_EQ(Text(), "");
}

TEST_F(LogFile, EndsTornLineOnce) {
  WriteFile(path_, "half");
  ASSERT_TRUE(file_.Open(path_));
  EXPECT_TRUE(file_.EndTornLine(scope_, false));
  EXPECT_EQ(Text(), "half\n");
  EXPECT_TRUE(file_.EndTornLine(scope_, true));
  EXPECT_EQ(Text(), "half\n");
  file_.Append("x");
  EXPECT_EQ(Text(), "half\nx\n");
}

TEST_F(LogFile, ReadsEndAgainAfterTornWrite) {
  ASSERT_TRUE(file_.Open(path_));
  EXPECT_TRUE(file_.EndTornLine(scope_, false));
  WriteFile(path_, "half");
  EXPECT_TRUE(file_.EndTornLine(scope_, false));
  EXPECT_EQ(Text(), "half");
  EXPECT_TRUE(file_.EndTornLine(scope_, true));
  EXPECT_EQ(Text(), "half\n");
}

TEST_F(LogFile, EmptyFileHasNoTornLine) {
  ASSERT_TRUE(file_.Open(path_));
  EXPECT_TRUE(file_.EndTornLine(scope_, true));
  EXPECT_EQ(Text(), "");
}

TEST_F(LogFile, ClosedFileHasUnknownEnd) { EXPECT_FALSE(file_.EndTornLine(scope_, false)); }

TEST_F(LogFile, DetectsWherePathLeads) {
  ASSERT_TRUE(file_.Open(path_));
  EXPECT_TRUE(file_.IsAtPath());
  std::filesystem::rename(path_, path_ + ".old");
  EXPECT_FALSE(file_.IsAtPath());
  WriteFile(path_, "of another program\n");
  EXPECT_FALSE(file_.IsAtPath());
  EXPECT_FALSE(file_.OpenAgain(O_RDONLY).is_open());
  EXPECT_FALSE(file_.Truncate(scope_));
  EXPECT_EQ(Text(), "of another program\n");
  ASSERT_TRUE(file_.Reopen());
  EXPECT_TRUE(file_.IsAtPath());
}

TEST_F(LogFile, TruncatesForAllOpenStreams) {
  ASSERT_TRUE(file_.Open(path_));
  file_.Append("x");
  EXPECT_TRUE(file_.Truncate(scope_));
  EXPECT_EQ(Text(), "");
  file_.Append("y");
  EXPECT_EQ(Text(), "y\n");
}

TEST_F(LogFile, RefusesPipeAndFolder) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  EXPECT_FALSE(file_.Open(path_));
  EXPECT_FALSE(file_.good());
  std::filesystem::remove(path_);
  std::filesystem::create_directory(path_);
  EXPECT_FALSE(file_.Open(path_));
}

TEST_F(LogFile, KeepsBufferFromOtherStreams) {
  std::fstream other;
  bool readable = false;
  ASSERT_TRUE(file_.Open(path_));
  ASSERT_TRUE(tarn::OpenLogStream(path_, other, readable));
  EXPECT_TRUE(readable);
  other << "of the other\n";
  file_.Append("x");
  other.close();
  EXPECT_EQ(Text(), "x\nof the other\n");
}

}  // namespace
