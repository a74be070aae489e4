// Tests which file a log target writes to and how the file ends.

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <filesystem>

#include "logging/rotated_copy.h"
#include "tests/logging/log_file.h"

namespace {

using testing::ElementsAre;

class LogTargetFile : public LogFileTest {
 protected:
  ~LogTargetFile() override {
    if (std::filesystem::exists(other_)) LockObjects(other_, LockObjects::Keep{}).Remove();
  }

  bool UseOther() { return target_->setLogFile("other.log", folder_.path().c_str()); }
  static std::vector<std::string> MessagesIn(const std::string& path) {
    std::vector<std::string> messages;
    for (const std::string& line : ReadLines(path))
      messages.push_back(line.substr(line.rfind(" | ") + 3));
    return messages;
  }

  const std::string other_ = folder_.path() + "/other.log";
};

TEST_F(LogTargetFile, HeaderStaysDueInItsFile) {
  UseLimits(1, 900);
  WriteFile(path_, "content\n");
  ASSERT_TRUE(Open());
  ASSERT_TRUE(UseOther());
  Write("x");
  Close();
  EXPECT_THAT(MessagesIn(other_), ElementsAre("x"));
  ASSERT_TRUE(Open());
  Write("y");
  Close();
  EXPECT_EQ(Messages().size(), 7U);
}

TEST_F(LogTargetFile, NewFileIsRecovered) {
  ASSERT_TRUE(Open());
  Write("x");
  WriteFile(other_, "half of a line");
  WriteFile(tarn::UnfinishedCopy(other_), "half of");
  ASSERT_TRUE(UseOther());
  Write("y");
  Close();
  EXPECT_THAT(MessagesIn(other_), ElementsAre(testing::_, "y"));
  EXPECT_FALSE(std::filesystem::exists(tarn::UnfinishedCopy(other_)));
}

TEST_F(LogTargetFile, StreamOfCallerKeepsItsTextAndOutlivesTarget) {
  std::fstream stream;
  ASSERT_TRUE(target_->setLogFile("test.log", folder_.path().c_str()));
  ASSERT_TRUE(target_->SetStreamHandle(stream));
  stream << "of the caller\n";
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  Write("x");
  Close();
  stream.close();
  EXPECT_EQ(Lines().size(), 2U);
  ASSERT_TRUE(target_->SetStreamHandle(stream));
  target_.reset();
  stream << "later\n";
  stream.close();
  EXPECT_EQ(Lines().back(), "later");
  target_ = std::make_unique<tarn::LogTargetDefault>("id");
}

TEST_F(LogTargetFile, PipeIsRefused) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  EXPECT_FALSE(Open());
  EXPECT_FALSE(core_->registerTarget(target_.get()));
  EXPECT_FALSE(target_->cleanFile());
  std::filesystem::remove(path_);
  std::filesystem::create_symlink("/dev/null", path_);
  EXPECT_FALSE(Open());
  std::filesystem::remove(path_);
}

TEST_F(LogTargetFile, LinkToFileIsFollowed) {
  std::filesystem::create_symlink(other_, path_);
  ASSERT_TRUE(Open());
  Write("x");
  Close();
  EXPECT_THAT(MessagesIn(other_), ElementsAre("x"));
}

// Each line but the first checks where the path leads.
TEST_F(LogTargetFile, FollowsReplacementFile) {
  UseLimits(1000, 0);
  ASSERT_TRUE(Open());
  Write("x");
  std::filesystem::rename(path_, other_);
  WriteFile(path_, "from another program\n");
  const LockObjects moved(other_, LockObjects::Keep{});
  Write("y");
  EXPECT_TRUE(moved.gone());
  // LockObjects also removes the objects of the new file; the next line recreates them.
  EXPECT_EQ(LockObjects(path_, LockObjects::Keep{}).users(), 1);
  Write("z");
  Close();
  EXPECT_THAT(MessagesIn(other_), ElementsAre("x"));
  ASSERT_EQ(Lines().size(), 3U);
  EXPECT_EQ(Lines()[0], "from another program");
  EXPECT_EQ(Messages()[1], "y");
  EXPECT_EQ(Messages()[2], "z");
}

TEST_F(LogTargetFile, RecreatesRemovedFile) {
  UseLimits(1000, 0);
  ASSERT_TRUE(Open());
  Write("x");
  std::filesystem::remove(path_);
  Write("y");
  Close();
  EXPECT_THAT(Messages(), ElementsAre("y"));
  EXPECT_EQ(ModeOf(path_), 0666);
}

TEST_F(LogTargetFile, ContinuesWhenFolderReturns) {
  UseLimits(1000, 0);
  ASSERT_TRUE(Open());
  Write("x");
  std::filesystem::rename(folder_.path(), folder_.path() + ".moved");
  Write("dropped");
  Write("dropped");
  std::filesystem::rename(folder_.path() + ".moved", folder_.path());
  Write("y");
  Close();
  EXPECT_THAT(Messages(), ElementsAre("x", "y"));
}

TEST_F(LogTargetFile, ContinuesInNewFolderAfterFailedReopening) {
  UseLimits(1000, 0);
  ASSERT_TRUE(Open());
  Write("lost with the folder");
  std::filesystem::remove_all(folder_.path());
  Write("dropped");
  std::filesystem::create_directory(folder_.path());
  Write("x");
  Close();
  EXPECT_THAT(Messages(), ElementsAre("x"));
}

TEST_F(LogTargetFile, PathWithoutNameIsRefused) { EXPECT_FALSE(target_->SetStreamPath(nullptr)); }

TEST_F(LogTargetFile, MergedHeaderOutlivesInitialization) {
  ASSERT_TRUE(Open());
  tarn::stLogHeader merged{"", {{"Bit: ", "many"}, {"Mine: ", "too"}}, "", true};
  target_->logHeader(tarn::INFO, "", "", "", "", &merged, true);
  ASSERT_TRUE(target_->cleanFile());
  target_->initializeHeader();
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  target_->logHeader(tarn::INFO, "", "", "", "", nullptr, true);
  Close();
  EXPECT_THAT(Messages(), testing::IsSupersetOf({"Bit: many", "Mine: too"}));
}

}  // namespace
