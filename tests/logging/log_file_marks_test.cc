#include "logging/log_file_marks.h"

#include <gtest/gtest.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <csignal>

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

TEST_F(LogFileMarksTest, MemoryOfAnotherProgramIsLeftAlone) {
  const key_t key = ftok(path_.c_str(), LockObjects::kProject);
  ASSERT_NE(shmget(key, 4096, IPC_CREAT | IPC_EXCL | 0600), -1);
  tarn::LogFileMarks marks;
  EXPECT_FALSE(Attach(marks));
  EXPECT_NE(objects_.memory_segment(), -1);
}

}  // namespace
