#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <csignal>
#include <ctime>
#include <random>
#include <vector>

#include "support/files.h"
#include "tests/stress/log_check.h"
#include "tests/stress/log_user.h"
#include "tests/stress/stress_options.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/shared_page.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr int kMaxKills = 1000;
constexpr int kMaxWriters = 16 + kMaxKills;  // each killed writer has a successor

struct Sizes {
  int processes;
  int kills;
  long lines;  // of each place, that is, of a writer and its successors together
  long max_text;
  long long segment_size = 0;  // in bytes; with 0, the file is not rotated
};

long long Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<long long>(now.tv_sec) * 1000000000 + now.tv_nsec;
}

struct Board {
  std::atomic<long> acknowledged[kMaxWriters];
  std::atomic<int> victim;     // the writer of the next or last kill
  std::atomic<int> kill;       // the number of the last kill; 0 before the first kill
  std::atomic<int> answered;   // the last kill after which a writer wrote a line
  std::atomic<bool> all_done;  // no further kill follows
};

// Runs writers that are killed, and their successors.
class KilledWriters {
 public:
  explicit KilledWriters(const Sizes& sizes)
      : sizes_(sizes), path_(folder_.path() + "/shared.log"), objects_(path_) {
    if (sizes_.segment_size != 0) WriteFile(folder_.path() + "/pvx.trace", "keeplogs");
  }

  void Run() {
    ASSERT_EQ(pipe(answers_), 0);
    for (int place = 0; place < sizes_.processes; ++place)
      StartWriter(sizes_.lines);
    for (int i = 1; i <= sizes_.kills; ++i)
      ASSERT_NO_FATAL_FAILURE(KillOne(i));
    board_->all_done = true;
    ASSERT_EQ(pool_.WaitForAll(), "");
    close(answers_[0]);
    close(answers_[1]);
    Compare();
  }

 private:
  struct Writer {
    pid_t pid;
    long lines;  // the minimum
    bool killed;
  };

  void StartWriter(long lines) {
    const int number = static_cast<int>(writers_.size());
    const pid_t pid = pool_.Start([this, number, lines] { return Write(number, lines); });
    writers_.push_back({pid, lines, false});
    living_.push_back(writers_.size() - 1);
  }

  // Runs in the writer's process.
  bool Write(int number, long lines) {
    LogUser user(folder_.path(), "shared.log", sizes_.segment_size);
    if (!user.Attach()) return false;
    NumberedLogger logger(number, sizes_.max_text);
    while (logger.written() < lines || !board_->all_done) {
      const int kill = board_->kill;
      logger.WriteNext();
      board_->acknowledged[number] = logger.written();
      if (board_->victim != number && !Answer(kill)) return false;
    }
    return user.Detach();
  }

  // Called after a line that began after that kill. The first call notifies the test.
  bool Answer(int kill) {
    int answered = board_->answered;
    if (answered >= kill || !board_->answered.compare_exchange_strong(answered, kill)) return true;
    const long long now = Now();
    return write(answers_[1], &now, sizeof now) == sizeof now;
  }

  void KillOne(int kill) {
    // A random delay, not a wait for an event.
    const timespec moment{0, std::uniform_int_distribution<long>(0, 3000000)(random_)};
    nanosleep(&moment, nullptr);
    const auto chosen = ChooseVictim(kill);
    Writer& victim = writers_[*chosen];
    board_->victim = static_cast<int>(*chosen);
    const long long killed = Now();
    ::kill(victim.pid, SIGKILL);
    board_->kill = kill;
    ASSERT_TRUE(pool_.Kill(victim.pid)) << "a writer ended too early";
    victim.killed = true;
    const long rest = victim.lines - board_->acknowledged[*chosen];
    living_.erase(chosen);
    ASSERT_NO_FATAL_FAILURE(AwaitAnswer(killed));
    StartWriter(std::max(rest, 1L));
  }

  // Every second time, chooses the writer that most probably holds the lock, in the middle of a
  // line.
  std::vector<std::size_t>::iterator ChooseVictim(int kill) {
    const pid_t holder = kill % 2 == 0 ? objects_.last_holder() : -1;
    const auto found = std::find_if(living_.begin(), living_.end(), [&](std::size_t writer) {
      return writers_[writer].pid == holder;
    });
    if (found != living_.end()) return found;
    return living_.begin() + static_cast<std::ptrdiff_t>(random_() % living_.size());
  }

  void AwaitAnswer(long long killed) {
    pollfd answer{answers_[0], POLLIN, 0};
    ASSERT_EQ(poll(&answer, 1, ProcessPool::kTimeoutSeconds * 1000), 1)
        << "nobody goes on after a kill";
    long long time = 0;
    ASSERT_EQ(read(answers_[0], &time, sizeof time), static_cast<ssize_t>(sizeof time));
    longest_gap_ = std::max(longest_gap_, static_cast<double>(time - killed) / 1e6);
  }

  void Compare() {
    std::vector<WriterRecord> records;
    for (std::size_t i = 0; i < writers_.size(); ++i)
      records.push_back({writers_[i].pid, board_->acknowledged[i], writers_[i].killed});
    LogCheck check(records, sizes_.max_text);
    const bool rotated = sizes_.segment_size != 0;
    EXPECT_TRUE(rotated ? check.ReadWithCopies(path_) : check.Read(path_)) << check.problem();
    if (rotated) {
      EXPECT_GE(check.copies(), FullSize() ? 1000 : 20);
    }
    PrintFigure(
        "%d kills among %d writers: %ld lines, %ld of them torn, %ld empty, %ld rotations; "
        "longest gap after a kill %.2f ms",
        sizes_.kills, sizes_.processes, check.lines(), check.torn(), check.empty(), check.copies(),
        longest_gap_);
    if (FullSize()) {
      EXPECT_LE(longest_gap_, 1000.0) << "ms";
    }
  }

  const Sizes sizes_;
  const TemporaryFolder folder_;
  const std::string path_;
  const LockObjects objects_;
  const SharedPage<Board> board_;
  int answers_[2] = {-1, -1};
  std::mt19937 random_{std::random_device()()};
  std::vector<Writer> writers_;
  std::vector<std::size_t> living_;
  double longest_gap_ = 0;
  ProcessPool pool_;
};

TEST(KilledWritersTest, OthersContinue) {
  KilledWriters(FullSize() ? Sizes{16, 200, 20000, 16} : Sizes{6, 25, 100, 16}).Run();
}

// The longer a line, the more often a kill interrupts its write.
TEST(KilledWritersTest, OthersContinueAfterLongLines) {
  const int rounds = FullSize() ? 10 : 1;
  for (int i = 0; i < rounds && !HasFailure(); ++i)
    KilledWriters({FullSize() ? 16 : 6, 20, 20, 4000}).Run();
}

// Every acknowledged line is in exactly one of the files.
TEST(KilledWritersTest, OthersContinueAndRotate) {
  KilledWriters(FullSize() ? Sizes{8, 100, 40000, 16, 16 << 10} : Sizes{6, 25, 1000, 16, 8 << 10})
      .Run();
}

// Of several concurrent writers, one writes the header, and no line precedes it.
TEST(KilledWritersTest, EveryFileBeginsWithHeaderOnce) {
  KilledWriters({4, 0, FullSize() ? 40000 : 2000, 16, 8 << 10}).Run();
}

}  // namespace
