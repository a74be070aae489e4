#include "platform/file_copy.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>
#include <cerrno>
#include <string>
#include <thread>

#include "support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

std::string Invented(std::size_t size) {
  std::string content(size, '\0');
  for (std::size_t i = 0; i < size; ++i)
    content[i] = static_cast<char>(i * 7 + i / 251);
  return content;
}

class FileCopyTest : public testing::Test {
 protected:
  int OpenSource(const std::string& content) const {
    WriteFile(source_, content);
    return open(source_.c_str(), O_RDONLY | O_CLOEXEC);
  }
  int OpenCopy() const {
    return open(copy_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  }

  const TemporaryFolder folder_;
  const std::string source_ = folder_.path() + "/source";
  const std::string copy_ = folder_.path() + "/copy";
};

TEST_F(FileCopyTest, CopiesContentOfAnySize) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{4096},
                                 std::size_t{65537}, std::size_t{3 << 20}}) {
    const std::string content = Invented(size);
    const int from = OpenSource(content);
    const int to = OpenCopy();
    EXPECT_TRUE(platform::CopyFileContent(from, to));
    EXPECT_EQ(close(to), 0);
    EXPECT_EQ(close(from), 0);
    EXPECT_TRUE(ReadFile(copy_) == content) << size;
  }
}

TEST_F(FileCopyTest, ContinuesAtBothPositions) {
  const int from = OpenSource("0123456789");
  const int to = OpenCopy();
  ASSERT_EQ(lseek(from, 4, SEEK_SET), 4);
  ASSERT_EQ(write(to, "ab", 2), 2);
  EXPECT_TRUE(platform::CopyFileContent(from, to));
  EXPECT_EQ(ReadFile(copy_), "ab456789");
  EXPECT_EQ(lseek(from, 0, SEEK_CUR), 10);
  EXPECT_EQ(lseek(to, 0, SEEK_CUR), 8);
  close(to);
  close(from);
}

// copy_file_range() and sendfile() refuse such a file.
TEST_F(FileCopyTest, CopiesToFileOpenForAppending) {
  WriteFile(copy_, "before ");
  const std::string content = Invented(100000);
  const int from = OpenSource(content);
  const int to = open(copy_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
  EXPECT_TRUE(platform::CopyFileContent(from, to));
  close(to);
  close(from);
  EXPECT_TRUE(ReadFile(copy_) == "before " + content);
}

TEST_F(FileCopyTest, CopiesToAndFromPipesAndSockets) {
  const std::string content = Invented(300000);
  int pipes[2];
  int sockets[2];
  ASSERT_EQ(pipe(pipes), 0);
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets), 0);
  const int from = OpenSource(content);
  const int to = OpenCopy();
  std::thread first([&] {
    EXPECT_TRUE(platform::CopyFileContent(from, pipes[1]));
    close(pipes[1]);
  });
  std::thread second([&] {
    EXPECT_TRUE(platform::CopyFileContent(pipes[0], sockets[1]));
    close(sockets[1]);
  });
  EXPECT_TRUE(platform::CopyFileContent(sockets[0], to));
  first.join();
  second.join();
  for (const int descriptor : {pipes[0], sockets[0], from, to})
    close(descriptor);
  EXPECT_TRUE(ReadFile(copy_) == content);
}

TEST_F(FileCopyTest, ReportsErrors) {
  const int from = OpenSource("text");
  const int to = OpenCopy();
  const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
  EXPECT_FALSE(platform::CopyFileContent(from, from));  // not open for writing
  EXPECT_FALSE(platform::CopyFileContent(to, to));      // not open for reading
  EXPECT_FALSE(platform::CopyFileContent(-1, to));
  ASSERT_EQ(lseek(from, 0, SEEK_SET), 0);
  EXPECT_FALSE(platform::CopyFileContent(from, full));
  EXPECT_EQ(errno, ENOSPC);
  for (const int descriptor : {from, to, full})
    close(descriptor);
}

}  // namespace
