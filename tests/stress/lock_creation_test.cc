#include <gtest/gtest.h>
#include <sched.h>
#include <unistd.h>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <random>
#include <string>

#include "logging/binary_lock.h"
#include "tests/stress/process_barrier.h"
#include "tests/stress/stress_options.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/shared_page.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr int kUsers = 8;

struct Board {
  ProcessBarrier barrier;
  std::atomic<bool> failed;

  std::atomic<int> inside;  // users that hold the lock
  long counter;             // guarded only by the lock
};

bool Complain(Board& board, const char* what) {
  if (!board.failed.exchange(true)) std::fprintf(stderr, "%s\n", what);
  return false;
}

// Takes the lock, checks that no other user holds it, and releases it.
bool Work(Board& board, tarn::BinaryLock& lock, const LockObjects& objects) {
  if (!lock.wait()) return Complain(board, "wait() failed");
  if (++board.inside != 1) return Complain(board, "two have the lock");
  if (objects.free() != 0) return Complain(board, "the lock is held, and its semaphore is not 0");
  const volatile long& counter = board.counter;
  const long before = counter;
  sched_yield();  // allows the others to try
  board.counter = before + 1;
  --board.inside;
  if (!lock.release()) return Complain(board, "release() failed");
  return true;
}

// Creates, uses and finalizes one lock.
bool Live(Board& board, const std::string& path, const LockObjects& objects, int times) {
  tarn::BinaryLock lock;
  if (!lock.create(path, LockObjects::kProject)) return Complain(board, "create() failed");
  for (int i = 0; i < times; ++i) {
    if (!Work(board, lock, objects)) return false;
  }
  // A user that did nothing may have attached to a set that was being removed, and detects it here.
  return lock.finalize() || times == 0 || Complain(board, "finalize() failed");
}

class LockCreationTest : public testing::Test {
 protected:
  void CheckAttached() const {
    if (objects_.users() != kUsers) Complain(*board_, "the user count is wrong");
    if (objects_.free() != 1) Complain(*board_, "the semaphore of a free lock is not 1");
  }

  void CheckGone() const {
    if (!objects_.gone()) Complain(*board_, "something is left after the last one");
  }

  // All processes create, work and finalize at once. In slow mode, none works before all have
  // created. After a failure the processes only wait for each other.
  void LiveTogether(bool slowly) const {
    tarn::BinaryLock lock;
    const auto all = [this](auto step) {
      board_->barrier.Wait();
      if (!board_->failed) step();
    };
    all([&] {
      if (!lock.create(path_, LockObjects::kProject)) Complain(*board_, "create() failed");
      if (!slowly) Work(*board_, lock, objects_);
    });
    all([&] { CheckAttached(); });
    all([&] {
      if (slowly) Work(*board_, lock, objects_);
    });
    all([&] { CheckAttached(); });
    all([&] {
      if (!lock.finalize()) Complain(*board_, "finalize() failed");
    });
    all([&] { CheckGone(); });
  }

  // Each process uses its locks independently of the others.
  void LiveApart(int users) {
    constexpr int kLives = 300;
    board_->counter = 0;
    for (int i = 0; i < users; ++i) {
      pool_.Start([&] {
        for (int life = 0; life < kLives; ++life) {
          if (!Live(*board_, path_, objects_, life % 3)) return false;
        }
        return true;
      });
    }
    ASSERT_EQ(pool_.WaitForAll(), "");
    ASSERT_TRUE(objects_.gone());
    // One third of the locks is not taken, one third is taken once, one third twice.
    ASSERT_EQ(board_->counter, static_cast<long>(kLives) * users);
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/shared.log";
  const LockObjects objects_{path_};
  const SharedPage<Board> board_;
  ProcessPool pool_;
};

// Every second time, processes take the lock at once, while others still create it.
TEST_F(LockCreationTest, ConcurrentCreatorsShareOneSet) {
  const int rounds = FullSize() ? 20000 : 200;
  board_->barrier.Prepare(kUsers);
  for (int i = 0; i < kUsers; ++i) {
    pool_.Start([&] {
      for (int round = 0; round < rounds; ++round)
        LiveTogether(round % 2 == 0);
      return !board_->failed;
    });
  }
  EXPECT_EQ(pool_.WaitForAll(), "");
  EXPECT_EQ(board_->counter, static_cast<long>(rounds) * kUsers);
}

TEST_F(LockCreationTest, AttachingMeetsRemoval) {
  const int rounds = FullSize() ? 150 : 1;
  for (int round = 0; round < rounds; ++round) {
    for (const int users : {2, 3, kUsers})
      ASSERT_NO_FATAL_FAILURE(LiveApart(users)) << users << " users";
  }
}

// An incomplete set of a killed creator would block all later users.
TEST_F(LockCreationTest, KilledCreatorDoesNotBlockOthers) {
  const int rounds = FullSize() ? 5000 : 60;
  std::mt19937 random{std::random_device()()};
  for (int round = 0; round < rounds; ++round) {
    const pid_t victim = pool_.Start([&] {
      tarn::BinaryLock lock;
      return lock.create(path_, LockObjects::kProject) && lock.wait() && lock.release() &&
             lock.finalize() && pause() == 0;
    });
    for (int i = 0; i < 2; ++i)
      pool_.Start([&] { return Live(*board_, path_, objects_, 2); });
    // A random delay, not a wait for an event.
    const timespec moment{0, std::uniform_int_distribution<long>(0, 1500000)(random)};
    nanosleep(&moment, nullptr);
    ASSERT_TRUE(pool_.Kill(victim));
    ASSERT_EQ(pool_.WaitForAll(), "") << "in round " << round;
    ASSERT_EQ(board_->counter, 4L * (round + 1));
    objects_.Remove();
  }
}

}  // namespace
