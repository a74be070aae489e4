#include "logging/log_file_marks.h"

#include <gtest/gtest.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <csignal>
#include <cstdint>
#include <functional>
#include <vector>

#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

namespace {

class LogFileMarksTest : public testing::Test {
 protected:
  bool Attach(tarn::LogFileMarks& marks) const {
    return marks.attach(path_, LockObjects::kProject);
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/file";
  const LockObjects objects_{path_};
};

TEST_F(LogFileMarksTest, AreSharedByAllThatAttach) {
  tarn::LogFileMarks first;
  tarn::LogFileMarks second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(Attach(second));
  EXPECT_FALSE(second.writing());
  first.setWriting(true);
  EXPECT_TRUE(second.writing());
  first.setWriting(false);
  EXPECT_FALSE(second.writing());
}

TEST_F(LogFileMarksTest, OutliveTheirWriter) {
  tarn::LogFileMarks marks;
  ASSERT_TRUE(Attach(marks));
  ProcessPool pool;
  pool.Start([this] {
    tarn::LogFileMarks own;
    if (Attach(own)) own.setWriting(true);
    return raise(SIGKILL) == 0;
  });
  pool.WaitForAll();
  EXPECT_TRUE(marks.writing());
}

TEST_F(LogFileMarksTest, LastOneRemovesThem) {
  tarn::LogFileMarks first;
  tarn::LogFileMarks second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(Attach(second));
  first.detach();
  EXPECT_NE(objects_.memory_segment(), -1);
  second.detach();
  EXPECT_TRUE(objects_.gone());
}

TEST_F(LogFileMarksTest, WithoutMemoryTheyAreNeverSet) {
  tarn::LogFileMarks marks;
  EXPECT_FALSE(marks.attach(folder_.path() + "/missing", LockObjects::kProject));
  marks.setWriting(true);
  EXPECT_FALSE(marks.writing());
  marks.setWriting(false);
  marks.detach();
}

TEST_F(LogFileMarksTest, LastOneLeavesThemWhenOneIsSet) {
  const auto set = std::vector<std::function<void(tarn::LogFileMarks&)>>{
      [](auto& marks) { marks.setWriting(true); },
      [](auto& marks) {
        marks.setEmptying({10, 11});
      },
      [](auto& marks) { marks.setHeaderDue(true); },
  };
  for (const auto& set_one : set) {
    tarn::LogFileMarks marks;
    ASSERT_TRUE(Attach(marks));
    set_one(marks);
    marks.detach();
    EXPECT_NE(objects_.memory_segment(), -1);
    ASSERT_TRUE(Attach(marks));
    EXPECT_TRUE(marks.writing() || marks.headerDue() || marks.emptying().inode == 11);
    marks.setWriting(false);
    marks.setEmptying({});
    marks.setHeaderDue(false);
    marks.detach();
    EXPECT_TRUE(objects_.gone());
  }
}

// Two files whose numbers differ above the bits that the key has can have the same key. Here a file
// takes the place of another one, so that both have the segment of the first.
TEST_F(LogFileMarksTest, ThoseOfAnotherFileAreNotUsed) {
  const key_t key = ftok(path_.c_str(), LockObjects::kProject);
  tarn::LogFileMarks marks;
  ASSERT_TRUE(Attach(marks));
  marks.setHeaderDue(true);
  // As if it were another file's: its number is the fifth word.
  auto* const words = static_cast<std::uint64_t*>(shmat(shmget(key, 0, 0), nullptr, 0));
  ++words[4];
  tarn::LogFileMarks other;
  EXPECT_FALSE(Attach(other));
  EXPECT_FALSE(other.attached());
  EXPECT_EQ(shmdt(words), 0);
  marks.detach();
  // Nobody has the other file open any more.
  ASSERT_TRUE(Attach(other));
  EXPECT_FALSE(other.headerDue());
  other.detach();
  EXPECT_TRUE(objects_.gone());
}

TEST_F(LogFileMarksTest, MemoryOfAnotherProgramIsLeftAlone) {
  const key_t key = ftok(path_.c_str(), LockObjects::kProject);
  ASSERT_NE(shmget(key, 4096, IPC_CREAT | IPC_EXCL | 0600), -1);
  tarn::LogFileMarks marks;
  EXPECT_FALSE(Attach(marks));
  EXPECT_NE(objects_.memory_segment(), -1);
}

}  // namespace
