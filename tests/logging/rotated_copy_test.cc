#include "logging/rotated_copy.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <filesystem>

#include "platform/file_descriptor.h"
#include "support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using tarn::Beginning;

class RotatedCopy : public testing::Test {
 protected:
  std::string At(const std::string& name) const { return folder_.path() + "/" + name; }
  bool Make() const {
    const platform::FileDescriptor log(open(log_.c_str(), O_RDONLY | O_CLOEXEC));
    return tarn::MakeUnfinishedCopy(log.number(), unfinished_);
  }
  tarn::Beginning Compare(const std::string& log, const std::string& copy) const {
    WriteFile(log_, log);
    WriteFile(unfinished_, copy);
    const platform::FileDescriptor first(open(log_.c_str(), O_RDONLY | O_CLOEXEC));
    const platform::FileDescriptor second(open(unfinished_.c_str(), O_RDONLY | O_CLOEXEC));
    return tarn::CompareBeginning(first.number(), second.number());
  }

  const TemporaryFolder folder_;
  const std::string log_ = folder_.path() + "/test.log";
  const std::string unfinished_ = tarn::UnfinishedCopy(log_);
};

TEST_F(RotatedCopy, HasHiddenNameFirst) {
  EXPECT_EQ(tarn::UnfinishedCopy("/logs/CRN.log"), "/logs/.CRN.log.rotating");
}

TEST_F(RotatedCopy, HasContentAndModeOfLog) {
  WriteFile(log_, "content\n");
  ASSERT_EQ(chmod(log_.c_str(), 0640), 0);
  ASSERT_TRUE(Make());
  EXPECT_EQ(ReadFile(unfinished_), "content\n");
  EXPECT_EQ(ModeOf(unfinished_), 0640);
}

TEST_F(RotatedCopy, DoesNotReplaceUnfinishedCopy) {
  WriteFile(log_, "content\n");
  WriteFile(unfinished_, "another\n");
  EXPECT_FALSE(Make());
  EXPECT_EQ(ReadFile(unfinished_), "another\n");
}

TEST_F(RotatedCopy, DoesNotReplaceNamedCopies) {
  std::string first;
  std::string second;
  WriteFile(unfinished_, "first");
  ASSERT_TRUE(tarn::NameCopy(unfinished_, log_, first));
  WriteFile(unfinished_, "second");
  ASSERT_TRUE(tarn::NameCopy(unfinished_, log_, second));
  EXPECT_EQ(ReadFile(first), "first");
  EXPECT_EQ(ReadFile(second), "second");
  EXPECT_FALSE(std::filesystem::exists(unfinished_));
}

TEST_F(RotatedCopy, KeepsHiddenNameWhenFolderIsGone) {
  std::string copy = "before";
  EXPECT_FALSE(tarn::NameCopy(At("missing/.test.log.rotating"), At("missing/test.log"), copy));
  EXPECT_EQ(copy, "before");
}

TEST_F(RotatedCopy, IsComparedWithBeginningOfLog) {
  EXPECT_EQ(Compare("content\nmore\n", "content\n"), Beginning::kSame);
  EXPECT_EQ(Compare("content\n", "content\n"), Beginning::kSame);
  EXPECT_EQ(Compare("content\n", ""), Beginning::kSame);
  EXPECT_EQ(Compare("", ""), Beginning::kSame);
  EXPECT_EQ(Compare("content", "content\n"), Beginning::kDifferent);
  EXPECT_EQ(Compare("", "content\n"), Beginning::kDifferent);
  EXPECT_EQ(Compare("Content\n", "content\n"), Beginning::kDifferent);
  // The difference is beyond the first block.
  const std::string large(200000, 'x');
  EXPECT_EQ(Compare(large + "y", large), Beginning::kSame);
  EXPECT_EQ(Compare(large + "y", large + "z"), Beginning::kDifferent);
}

TEST_F(RotatedCopy, HasUnknownBeginningWhenLogCannotBeRead) {
  WriteFile(unfinished_, "content\n");
  const platform::FileDescriptor folder(open(folder_.path().c_str(), O_RDONLY | O_CLOEXEC));
  const platform::FileDescriptor copy(open(unfinished_.c_str(), O_RDONLY | O_CLOEXEC));
  EXPECT_EQ(tarn::CompareBeginning(folder.number(), copy.number()), Beginning::kUnknown);
  EXPECT_EQ(tarn::CompareBeginning(copy.number(), folder.number()), Beginning::kUnknown);
}

}  // namespace
