#include "logging/write_mark.h"

#include <gtest/gtest.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <csignal>

#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

namespace {

class WriteMarkTest : public testing::Test {
 protected:
  bool Attach(tarn::WriteMark& mark) const { return mark.attach(path_, LockObjects::kProject); }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/file";
  const LockObjects objects_{path_};
};

TEST_F(WriteMarkTest, IsSharedByAllThatAttach) {
  tarn::WriteMark first;
  tarn::WriteMark second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(Attach(second));
  EXPECT_FALSE(second.interrupted());
  first.begin();
  EXPECT_TRUE(second.interrupted());
  first.end();
  EXPECT_FALSE(second.interrupted());
}

TEST_F(WriteMarkTest, OutlivesItsWriter) {
  tarn::WriteMark mark;
  ASSERT_TRUE(Attach(mark));
  ProcessPool pool;
  pool.Start([this] {
    tarn::WriteMark own;
    if (Attach(own)) own.begin();
    return raise(SIGKILL) == 0;
  });
  pool.WaitForAll();
  EXPECT_TRUE(mark.interrupted());
}

TEST_F(WriteMarkTest, LastOneRemovesIt) {
  tarn::WriteMark first;
  tarn::WriteMark second;
  ASSERT_TRUE(Attach(first));
  ASSERT_TRUE(Attach(second));
  first.detach();
  EXPECT_NE(objects_.memory_segment(), -1);
  second.detach();
  EXPECT_TRUE(objects_.gone());
}

TEST_F(WriteMarkTest, WithoutMemoryItDoesNothing) {
  tarn::WriteMark mark;
  EXPECT_FALSE(mark.attach(folder_.path() + "/missing", LockObjects::kProject));
  mark.begin();
  EXPECT_FALSE(mark.interrupted());
  mark.end();
  mark.detach();
}

TEST_F(WriteMarkTest, MemoryOfAnotherProgramIsLeftAlone) {
  const key_t key = ftok(path_.c_str(), LockObjects::kProject);
  ASSERT_NE(shmget(key, 4096, IPC_CREAT | IPC_EXCL | 0600), -1);
  tarn::WriteMark mark;
  EXPECT_FALSE(Attach(mark));
  EXPECT_NE(objects_.memory_segment(), -1);
}

}  // namespace
