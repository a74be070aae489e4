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

constexpr long kMostText = 40;
constexpr int kVictim = 0;
constexpr int kOther = 1;

enum class Then { kDies, kGoesOn, kHasRoomAgain };

// A writer whose second line ends after some bytes, as the file must not become larger, and another
// one that goes on. The smallest sizes of that second line are all tried.
class TornLineTest : public testing::Test {
 protected:
  // In a process of its own. What is left of it depends on what the signal SIGXFSZ does.
  bool WriteWithLimit(rlim_t bytes, Then then) const {
    LogUser user(folder_.path(), "shared.log");
    if (!user.Attach()) return false;
    NumberedLogger logger(kVictim, kMostText);
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
    NumberedLogger logger(kOther, kMostText);
    logger.WriteNext();
    return user.Detach();
  }

  // Lets both write, the other one also while the first one is there.
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

    LogCheck check({{victim, 1, true}, {other, 1, false}}, kMostText);
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

// Time column, all of the other columns, and into the message.
constexpr rlim_t kSizes = 75;

TEST_F(TornLineTest, NextWriterBeginsALineAfterOneThatDied) {
  for (rlim_t bytes = 0; bytes < kSizes && !HasFailure(); ++bytes)
    TearLine(bytes, Then::kDies);
}

TEST_F(TornLineTest, NextWriterBeginsALineAfterOneThatCouldNotGoOn) {
  for (rlim_t bytes = 0; bytes < kSizes && !HasFailure(); ++bytes)
    TearLine(bytes, Then::kGoesOn);
}

// What was not written then must not follow later, when nobody expects it any more.
TEST_F(TornLineTest, NothingMoreComesFromOneThatHasRoomAgain) {
  for (rlim_t bytes = 0; bytes < kSizes && !HasFailure(); ++bytes)
    TearLine(bytes, Then::kHasRoomAgain);
}

}  // namespace
