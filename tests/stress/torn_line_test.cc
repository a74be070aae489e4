#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/stress/log_check.h"
#include "tests/stress/log_user.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr long kMaxText = 40;
constexpr int kVictim = 0;
constexpr int kOther = 1;

enum class Then { kDies, kGoesOn, kHasRoomAgain };

// Tests a writer whose second line is cut off by a limit on the file's size, and another writer
// that continues. The tests try all of the smallest sizes of the second line.
class TornLineTest : public testing::Test {
 protected:
  // Runs in a separate process, whose end depends on the action of the signal SIGXFSZ.
  bool WriteWithLimit(rlim_t bytes, Then then) const {
    LogUser user(folder_.path(), "shared.log");
    if (!user.Attach()) return false;
    NumberedLogger logger(kVictim, kMaxText);
    logger.WriteNext();
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = std::filesystem::file_size(path_) + bytes;
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
    logger.WriteNext();
    if (then == Then::kHasRoomAgain) {
      limit.rlim_cur = limit.rlim_max;
      if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
    }
    logger.WriteNext();
    return user.Detach();
  }

  bool WriteOnce() const {
    LogUser user(folder_.path(), "shared.log");
    if (!user.Attach()) return false;
    NumberedLogger logger(kOther, kMaxText);
    logger.WriteNext();
    return user.Detach();
  }

  // Both writers write; the other writer also does so while the first writer exists.
  void TearLine(rlim_t bytes, Then then) {
    const bool dies = then == Then::kDies;
    std::filesystem::remove(path_);
    const LockObjects objects(path_);
    ProcessPool pool;
    const pid_t victim = pool.Start([&] {
      if (std::signal(SIGXFSZ, dies ? SIG_DFL : SIG_IGN) == SIG_ERR) return false;
      const rlimit no_core{0, 0};
      return setrlimit(RLIMIT_CORE, &no_core) == 0 && WriteWithLimit(bytes, then);
    });
    const std::string died = "a process was ended by signal " + std::to_string(SIGXFSZ);
    ASSERT_EQ(pool.WaitForAll(), dies ? died : "");
    const pid_t other = pool.Start([&] { return WriteOnce(); });
    ASSERT_EQ(pool.WaitForAll(), "");

    LogCheck check({{victim, 1, true}, {other, 1, false}}, kMaxText);
    EXPECT_TRUE(check.Read(path_)) << check.problem() << "\nafter " << bytes << " bytes";
    EXPECT_EQ(check.torn(), bytes == 0 ? 0 : 1) << "after " << bytes << " bytes";
    EXPECT_EQ(check.empty(), 0) << "after " << bytes << " bytes";
    if (!dies) {
      EXPECT_TRUE(objects.gone());
    }
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/shared.log";
};

// Covers the time column, all other columns, and the beginning of the message.
constexpr rlim_t kSizes = 75;

TEST_F(TornLineTest, NextWriterBeginsNewLineAfterKilledWriter) {
  for (rlim_t bytes = 0; bytes < kSizes && !HasFailure(); ++bytes)
    TearLine(bytes, Then::kDies);
}

TEST_F(TornLineTest, NextWriterBeginsNewLineAfterFailedWriter) {
  for (rlim_t bytes = 0; bytes < kSizes && !HasFailure(); ++bytes)
    TearLine(bytes, Then::kGoesOn);
}

// The unwritten rest of the line must not reach the file later.
TEST_F(TornLineTest, FailedWriterAddsNothingLater) {
  for (rlim_t bytes = 0; bytes < kSizes && !HasFailure(); ++bytes)
    TearLine(bytes, Then::kHasRoomAgain);
}

}  // namespace
