#include <gtest/gtest.h>
#include <algorithm>
#include <atomic>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/stress/log_check.h"
#include "tests/stress/log_user.h"
#include "tests/stress/stress_options.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/shared_page.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr int kMaxUsers = 2000;
constexpr long kLines = 5;
constexpr long kMaxText = 40;

struct Board {
  std::atomic<int> semaphore_sets[kMaxUsers];
};

// Attaches, writes and detaches the given number of times, each time in a separate process.
class ShortLivedUsers {
 public:
  explicit ShortLivedUsers(int users) : path_(folder_.path() + "/shared.log"), objects_(path_) {
    writers_.resize(static_cast<std::size_t>(users));
  }

  void Run(std::size_t at_a_time) {
    for (std::size_t i = 0; i < writers_.size(); ++i) {
      if (pool_.running() == at_a_time) {
        ASSERT_EQ(pool_.WaitForOne().problem, "");
      }
      const pid_t pid = pool_.Start([this, i] { return Use(static_cast<int>(i)); });
      writers_[i] = {pid, kLines, false};
    }
    ASSERT_EQ(pool_.WaitForAll(), "");
    EXPECT_TRUE(objects_.gone()) << "set " << objects_.semaphore_set() << " with "
                                 << objects_.users() << " users, segment "
                                 << objects_.memory_segment();
    LogCheck check(writers_, kMaxText);
    EXPECT_TRUE(check.Read(path_)) << check.problem();
    PrintFigure("%zu processes, %zu at a time: %ld lines, %zu semaphore sets", writers_.size(),
                at_a_time, check.lines(), CountSets());
  }

 private:
  bool Use(int number) {
    LogUser user(folder_.path(), "shared.log");
    if (!user.Attach()) return false;
    board_->semaphore_sets[number] = objects_.semaphore_set();
    NumberedLogger logger(number, kMaxText);
    while (logger.written() < kLines)
      logger.WriteNext();
    return user.Detach();
  }

  std::size_t CountSets() const {
    std::set<int> sets;
    for (std::size_t i = 0; i < writers_.size(); ++i)
      sets.insert(board_->semaphore_sets[i]);
    return sets.size();
  }

  const TemporaryFolder folder_;
  const std::string path_;
  const LockObjects objects_;
  const SharedPage<Board> board_;
  std::vector<WriterRecord> writers_;
  ProcessPool pool_;
};

TEST(ShortLivedUsersTest, LeaveAllLinesAndNoObjects) {
  ShortLivedUsers(FullSize() ? kMaxUsers : 100).Run(8);
}

// With fewer processes at a time, a process is more often the last user.
TEST(ShortLivedUsersTest, LastUserChangesOften) {
  ShortLivedUsers(FullSize() ? kMaxUsers : 100).Run(2);
}

}  // namespace
