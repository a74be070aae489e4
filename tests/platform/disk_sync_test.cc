#include "platform/disk_sync.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <cerrno>

#include "support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(DiskSync, AcceptsFilesAndFolders) {
  const TemporaryFolder folder;
  WriteFile(folder.path() + "/file", "text");
  for (const std::string& path : {folder.path() + "/file", folder.path()}) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_TRUE(platform::SyncToDisk(file)) << path;
    close(file);
  }
}

TEST(DiskSync, IgnoresPipes) {
  int pipes[2];
  ASSERT_EQ(pipe(pipes), 0);
  EXPECT_TRUE(platform::SyncToDisk(pipes[1]));
  close(pipes[0]);
  close(pipes[1]);
}

TEST(DiskSync, ReportsErrors) {
  EXPECT_FALSE(platform::SyncToDisk(-1));
  EXPECT_EQ(errno, EBADF);
}

}  // namespace
