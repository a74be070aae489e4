#include <gtest/gtest.h>
#include <unistd.h>
#include <chrono>
#include <csignal>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "tests/stress/log_check.h"
#include "tests/stress/log_user.h"
#include "tests/stress/stress_options.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr long kMaxText = 16;  // all lines together stay below the limit for rotation

struct Crowd {
  int processes;
  int threads;
  long lines;  // for each thread
};

void WriteLines(int writer, long lines) {
  NumberedLogger logger(writer, kMaxText);
  for (long i = 0; i < lines; ++i)
    logger.WriteNext();
}

bool WriteWithThreads(const std::string& folder, int first_writer, const Crowd& crowd) {
  LogUser user(folder, "shared.log");
  if (!user.Attach()) return false;
  std::vector<std::thread> threads;
  for (int i = 1; i < crowd.threads; ++i)
    threads.emplace_back(WriteLines, first_writer + i, crowd.lines);
  WriteLines(first_writer, crowd.lines);
  for (std::thread& thread : threads)
    thread.join();
  return user.Detach();
}

// Writes with all processes and threads at once and checks the file.
class Writers {
 public:
  explicit Writers(const Crowd& crowd) : crowd_(crowd) {}

  // `prepare` runs in each process before the process attaches.
  void Start(const std::function<void()>& prepare) {
    for (int i = 0; i < crowd_.processes; ++i) {
      const pid_t pid = pool_.Start([&, i] {
        prepare();
        return WriteWithThreads(folder_.path(), i * crowd_.threads, crowd_);
      });
      pids_.push_back(pid);
    }
  }

  const std::vector<pid_t>& pids() const { return pids_; }
  bool all_ended() const { return pool_.AllHaveEnded(); }

  void Compare() {
    ASSERT_EQ(pool_.WaitForAll(), "");
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start_;
    std::vector<WriterRecord> records;
    for (const pid_t pid : pids_)
      records.insert(records.end(), static_cast<std::size_t>(crowd_.threads), {pid, crowd_.lines});
    LogCheck check(records, kMaxText);
    EXPECT_TRUE(check.Read(path_)) << check.problem();
    EXPECT_TRUE(objects_.gone());
    PrintFigure("%d processes with %d threads each: %ld lines, %.0f lines/s", crowd_.processes,
                crowd_.threads, check.lines(), static_cast<double>(check.lines()) / time.count());
  }

 private:
  const Crowd crowd_;
  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/shared.log";
  const LockObjects objects_{path_};
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::vector<pid_t> pids_;
  ProcessPool pool_;
};

void WriteTogether(const Crowd& crowd) {
  Writers writers(crowd);
  writers.Start([] {});
  writers.Compare();
}

// Signals interrupt calls that wait.
void LetSignalsInterrupt() {
  struct sigaction action {};
  action.sa_handler = [](int) {};
  sigaction(SIGUSR1, &action, nullptr);
}

TEST(SharedLogTest, ProcessesShareFile) { WriteTogether({16, 1, FullSize() ? 20000 : 200}); }

TEST(SharedLogTest, ProcessesWithThreadsShareFile) {
  WriteTogether({4, 4, FullSize() ? 20000 : 200});
}

TEST(SharedLogTest, ThreadsShareFile) { WriteTogether({1, 16, FullSize() ? 20000 : 200}); }

TEST(SharedLogTest, SignalsLoseNoLine) {
  Writers writers({8, 1, FullSize() ? 20000 : 200});
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGUSR1);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  writers.Start([&] {
    LetSignalsInterrupt();
    sigprocmask(SIG_UNBLOCK, &signals, nullptr);
  });
  while (!writers.all_ended()) {
    for (const pid_t pid : writers.pids())
      kill(pid, SIGUSR1);
  }
  writers.Compare();
}

}  // namespace
