// Tests when a log file is rotated and which copies are then removed.

#include <sys/stat.h>

#include "logging/rotated_copy.h"
#include "tests/logging/log_segments.h"
#include "tests/support/system_facilities.h"

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST_F(LogTargetSegmentsTest, RegistrationRotatesFileAtLimit) {
  const std::string content = Fill(kLimit);
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  EXPECT_TRUE(ReadFile(At(kCopy)) == content);
  EXPECT_EQ(Text(), "");
  Close();
}

TEST_F(LogTargetSegmentsTest, AppendsWithoutHeaderBelowLimit) {
  FillSparsely(kLimit - 1);
  ASSERT_TRUE(Open());
  EXPECT_FALSE(WasRotated());
  Close();
  WriteFile(path_, "before\n");
  ASSERT_TRUE(Open());
  Write("x");
  Close();
  EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(LogTargetSegmentsTest, LimitDependsOnLevel) {
  constexpr struct {
    long long size;
    tarn::Log_Level level;
    bool rotated;
  } kCases[] = {
      {30 << 20, tarn::TRACE, false}, {(50 << 20) - 1, tarn::TRACE, false},
      {50 << 20, tarn::TRACE, true},  {(20 << 20) - 1, tarn::DEBUG, false},
      {30 << 20, tarn::DEBUG, true},  {10 << 20, tarn::FATAL, true},
  };
  for (const auto& tried : kCases) {
    target_->setLogLevel(tried.level);
    FillSparsely(tried.size);
    ASSERT_TRUE(Open());
    EXPECT_EQ(WasRotated(), tried.rotated) << tried.level << " " << tried.size;
    Close();
    std::filesystem::remove(At(kCopy));
  }
}

TEST_F(LogTargetSegmentsTest, ChecksSize900SecondsAfterLastCheck) {
  UseLimits(100, 900);
  const unsigned long long begin = static_cast<unsigned long long>(g_segments_now) * 1000;
  ASSERT_TRUE(Open());
  // Registration checked the size at the real time, which is far from the time of this line.
  Write("of another time, over the limit of one hundred characters for a file of this test", begin);
  EXPECT_FALSE(WasRotated());  // the time of the previous line counts
  Write("x", begin + 100000);
  EXPECT_TRUE(WasRotated());
  std::filesystem::remove(At(kCopy));
  for (const unsigned long long second : {899U, 900U}) {
    Write("over the limit of one hundred characters for a file of this test",
          begin + second * 1000);
    EXPECT_FALSE(WasRotated()) << second;
  }
  Write("x", begin + 901000);
  EXPECT_TRUE(WasRotated());
  Close();
}

TEST_F(LogTargetSegmentsTest, DoesNotRotateWhenSizeCannotBeRead) {
  ASSERT_TRUE(Open());
  EXPECT_TRUE(target_->SegmentLogFile(true));
  std::filesystem::remove(path_);
  EXPECT_FALSE(target_->SegmentLogFile(true));
  Close();
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(LogTargetSegmentsTest, DoesNotOverwriteCopyOfSameSecond) {
  UseLimits(1, 900);
  for (const char* const content : {"first\n", "second\n", "third\n"}) {
    WriteFile(path_, content);
    ASSERT_TRUE(Open());
    Close();
  }
  EXPECT_EQ(ReadFile(At("test 2026-11-15 21-05-07_002.log")), "second\n");
  EXPECT_EQ(ReadFile(At("test 2026-11-15 21-05-07_003.log")), "third\n");
}

TEST_F(LogTargetSegmentsTest, MarkerKeepsAllCopies) {
  UseLimits(1, 900);
  WriteFile(At("pvx.trace"), "keeplogs");
  WriteFile(At("test of old"), "");
  for (int i = 0; i < 20; ++i, g_segments_now += 86400) {
    WriteFile(path_, "content\n");
    ASSERT_TRUE(Open());
    Close();
  }
  EXPECT_EQ(Names().size(), 23U);
}

TEST_F(LogTargetSegmentsTest, RotationRemovesOldCopies) {
  for (const char* const name :
       {"test 2026-11-10 09-00-00.log", "test 2026-11-14 10-00-00.log",
        "test 2026-11-15 08-00-00.log", "Other.log", "testextra.txt", "testfolder/file"}) {
    std::filesystem::create_directories(std::filesystem::path(At(name)).parent_path());
    WriteFile(At(name), name);
  }
  WriteFile(At("pvx.trace"), "keeplogs\n");
  Fill(kLimit);
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy, "test 2026-11-15 08-00-00.log",
                                            "Other.log", "pvx.trace", "testfolder"));
  EXPECT_THAT(ReadFile(At("testfolder/file")), "");
  Close();
}

TEST_F(LogTargetSegmentsTest, RemovesLinksAndPipesThemselves) {
  const TemporaryFolder outside;
  WriteFile(outside.path() + "/file", "kept");
  std::filesystem::create_directory_symlink(outside.path(), At("test_folder_link"));
  std::filesystem::create_symlink(outside.path() + "/file", At("test_link"));
  ASSERT_EQ(mkfifo(At("test_pipe").c_str(), 0600), 0);
  if (geteuid() == 0) {
    ASSERT_TRUE(MakeNullDevice(At("test_device")));
  }
  Fill(kLimit);
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  EXPECT_EQ(ReadFile(outside.path() + "/file"), "kept");
  Close();
}

TEST_F(LogTargetSegmentsTest, RemovesNothingForZeroDays) {
  WriteFile(At("testextra.txt"), "");
  ASSERT_TRUE(Open());
  target_->removeLogFilesExceptLastN(0);
  target_->removeLogFilesExceptLastN(-1);
  EXPECT_TRUE(std::filesystem::exists(At("testextra.txt")));
  target_->removeLogFilesExceptLastN(1);
  EXPECT_FALSE(std::filesystem::exists(At("testextra.txt")));
  EXPECT_TRUE(std::filesystem::exists(path_));
  Close();
}

TEST_F(LogTargetSegmentsTest, KeepsFolderWithNameOfCopy) {
  std::filesystem::create_directory(At(kCopy));
  const std::string content = Fill(kLimit);
  ASSERT_TRUE(Open());
  Close();
  EXPECT_TRUE(std::filesystem::is_directory(At(kCopy)));
  EXPECT_TRUE(ReadFile(At("test 2026-11-15 21-05-07_002.log")) == content);
}

TEST_F(LogTargetSegmentsTest, DoesNotFollowLinkWithNameOfCopy) {
  const TemporaryFolder outside;
  WriteFile(outside.path() + "/file", "kept");
  std::filesystem::create_symlink(outside.path() + "/file", At(kCopy));
  std::filesystem::create_symlink(outside.path() + "/file", tarn::UnfinishedCopy(path_));
  const std::string content = Fill(kLimit);
  ASSERT_TRUE(Open());
  Close();
  EXPECT_EQ(ReadFile(outside.path() + "/file"), "kept");
  EXPECT_TRUE(ReadFile(At("test 2026-11-15 21-05-07_002.log")) == content);
}

TEST_F(LogTargetSegmentsTest, FileWithoutExtensionHasCopiesWithoutExtension) {
  UseLimits(1, 900);
  const std::string folder = At("a.folder");
  std::filesystem::create_directory(folder);
  ASSERT_TRUE(target_->setLogFile("name", folder.c_str()));
  for (const char* const hour : {"01", "02", "03"})
    WriteFile(folder + "/name 2026-11-15 " + hour + "-00-00", "");
  WriteFile(folder + "/name", "content\n");
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  Write("x");
  Close();
  EXPECT_EQ(ReadFile(folder + "/name 2026-11-15 21-05-07"), "content\n");
  EXPECT_EQ(ReadLines(folder + "/name").size(), 7U);
  EXPECT_TRUE(std::filesystem::exists(folder + "/name 2026-11-15 03-00-00"));
  EXPECT_FALSE(std::filesystem::exists(folder + "/name 2026-11-15 02-00-00"));
}

TEST_F(LogTargetSegmentsTest, CopyStaysAfterClockIsSetBack) {
  UseLimits(1, 900);
  for (const char* const name : {"test 2026-11-15 22-00-00.log", "test 2026-11-15 23-00-00.log"})
    WriteFile(At(name), "");
  WriteFile(path_, "content\n");
  ASSERT_TRUE(Open());
  Close();
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy, "test 2026-11-15 23-00-00.log"));
}

TEST_F(LogTargetSegmentsTest, HugeFileIsRenamedToCopy) {
  tarn::LogRotation::Limits limits;
  limits.max_copied_size = kLimit;
  target_ = std::make_unique<LimitedTarget>("id", limits);
  const std::string content = Fill(kLimit + 1);
  const auto inode = [](const std::string& path) {
    struct stat attributes {};
    return stat(path.c_str(), &attributes) == 0 ? attributes.st_ino : 0;
  };
  const ino_t before = inode(path_);
  ASSERT_TRUE(Open());
  Write("x");
  EXPECT_EQ(inode(At(kCopy)), before);
  EXPECT_EQ(ModeOf(path_), 0666);
  EXPECT_EQ(Messages().size(), 7U);
  EXPECT_TRUE(LockObjects(At(kCopy), LockObjects::Keep{}).gone());
  EXPECT_EQ(LockObjects(path_, LockObjects::Keep{}).users(), 1);
  Write("y");
  Close();
  EXPECT_EQ(Messages().size(), 8U);
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  EXPECT_TRUE(ReadFile(At(kCopy)) == content);
}

TEST_F(LogTargetSegmentsTest, LinkToHugeFileStaysLink) {
  tarn::LogRotation::Limits limits;
  limits.max_copied_size = kLimit;
  target_ = std::make_unique<LimitedTarget>("id", limits);
  const std::string content = Fill(kLimit + 1);
  std::filesystem::rename(path_, At("Other"));
  std::filesystem::create_symlink(At("Other"), path_);
  ASSERT_TRUE(Open());
  Close();
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_TRUE(ReadFile(At(kCopy)) == content);
  EXPECT_EQ(Text(), "");
}

}  // namespace
