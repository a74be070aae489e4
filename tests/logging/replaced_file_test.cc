// Tests files that another program replaces while the library opens them.

#include <gtest/gtest.h>
#include <filesystem>
#include <fstream>

#include "logging/log_file.h"
#include "support/files.h"
#include "tests/logging/system_faults.h"
#include "tests/support/temporary_folder.h"

namespace {

class ReplacedFile : public testing::Test {
 protected:
  ~ReplacedFile() override { g_faults = {}; }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/test.log";
  const std::string aside_ = folder_.path() + "/aside";
  std::fstream stream_;
  tarn::LogFile file_{stream_};
};

TEST_F(ReplacedFile, IsDetectedWhileOpening) {
  WriteFile(path_, "");
  g_faults.after_open = [this] {
    std::filesystem::rename(path_, aside_);
    WriteFile(path_, "");
  };
  ASSERT_TRUE(file_.Open(path_));
  EXPECT_TRUE(file_.IsAtPath());
  file_.Append("x");
  EXPECT_EQ(ReadFile(path_), "x\n");
  EXPECT_EQ(ReadFile(aside_), "");
}

TEST_F(ReplacedFile, OpenFailsWhenReplacedEachTime) {
  int replaced = 0;
  const std::function<void()> replace = [&] {
    WriteFile(aside_, "");
    std::filesystem::rename(aside_, path_);
    ++replaced;
    g_faults.after_open = replace;
  };
  g_faults.after_open = replace;
  EXPECT_FALSE(file_.Open(path_));
  EXPECT_FALSE(file_.good());
  EXPECT_GT(replaced, 1);
}

TEST_F(ReplacedFile, KeepsModeOfLinkedFileInItsPlace) {
  WriteFile(aside_, "");
  std::filesystem::permissions(aside_, std::filesystem::perms(0600));
  g_faults.after_open = [this] {
    std::filesystem::remove(path_);
    std::filesystem::create_symlink(aside_, path_);
  };
  bool readable = false;
  EXPECT_TRUE(tarn::OpenLogStream(path_, stream_, readable));
  EXPECT_EQ(ModeOf(aside_), 0600);
}

}  // namespace
