#include <sys/stat.h>

#include "logging/log_file_marks.h"
#include "logging/rotation.h"
#include "tests/logging/log_segments.h"

namespace {

using testing::ElementsAre;

// What a process leaves that is killed between two steps of a rotation.
class InterruptedRotationTest : public LogTargetSegmentsTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(marks_.attach(path_, LockObjects::kProject));
    content_ = Fill(1000);
  }
  void TearDown() override {
    Close();
    EXPECT_EQ(marks_.emptying().size, 0U);
  }

  // The copy is complete, and has that name.
  void MakeCopy(const std::string& path) {
    WriteFile(path, content_);
    struct stat attributes {};
    ASSERT_EQ(stat(path.c_str(), &attributes), 0);
    marks_.setEmptying({content_.size(), attributes.st_ino});
  }

  tarn::LogFileMarks marks_;
  std::string content_;
};

TEST_F(InterruptedRotationTest, FileIsEmptiedThatHasItsCopy) {
  MakeCopy(At(kCopy));
  Write("x");
  EXPECT_EQ(Messages().size(), 7U);  // the header and the line
  EXPECT_EQ(Messages().back(), "x");
}

TEST_F(InterruptedRotationTest, FileThatWasEmptiedGetsItsHeader) {
  MakeCopy(At(kCopy));
  WriteFile(path_, "");
  Write("x");
  EXPECT_EQ(Messages().size(), 7U);
}

TEST_F(InterruptedRotationTest, CopyWithoutItsNameDoesNotCount) {
  MakeCopy(tarn::UnfinishedCopy(path_));
  Write("x");
  EXPECT_EQ(Text().substr(0, content_.size()), content_);
  EXPECT_THAT(Names(), ElementsAre("test.log"));
}

TEST_F(InterruptedRotationTest, CopyThatIsGoneDoesNotCount) {
  MakeCopy(At(kCopy));
  std::filesystem::remove(At(kCopy));
  WriteFile(At("test 2026-11-15 21-05-08.log"), "another\n");
  Write("x");
  EXPECT_EQ(Text().substr(0, content_.size()), content_);
}

TEST_F(InterruptedRotationTest, CopyUnderTheNameOfALinkDoesNotCount) {
  const TemporaryFolder elsewhere;
  std::filesystem::create_symlink(path_, elsewhere.path() + "/alias.log");
  MakeCopy(elsewhere.path() + "/.alias.log.rotating");
  Write("x");
  EXPECT_EQ(Text().substr(0, content_.size()), content_);
}

TEST_F(InterruptedRotationTest, FileThatWasWrittenToStaysAsItIs) {
  MakeCopy(At(kCopy));
  WriteFile(path_, content_ + "more\n");
  Write("x");
  EXPECT_EQ(Text().substr(0, content_.size() + 5), content_ + "more\n");
}

TEST_F(InterruptedRotationTest, IsFinishedByTheNextTarget) {
  MakeCopy(At(kCopy));
  tarn::LogTargetDefault other("other");
  ASSERT_TRUE(other.setLogFile("test.log", folder_.path().c_str()));
  ASSERT_TRUE(other.onRegisterTarget());
  EXPECT_EQ(Text(), "");
  other.onUnregisterTarget();
}

}  // namespace
