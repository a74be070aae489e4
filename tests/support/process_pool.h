#pragma once

#include <sys/types.h>
#include <functional>
#include <set>
#include <string>

// Processes forked from the test program. The program has no other threads when it forks. Those
// that still run at the end of the pool's life, or of the program, are killed.
class ProcessPool {
 public:
  struct Ended {
    pid_t pid = -1;
    std::string problem;  // empty: it ended by itself, with success
  };

  ProcessPool() = default;
  ProcessPool(const ProcessPool&) = delete;
  ProcessPool& operator=(const ProcessPool&) = delete;
  ~ProcessPool();

  // Runs `body` in a process of its own, which ends with success when that returns true. One that
  // hangs is ended after `kPatience` seconds and counts as failed.
  pid_t Start(const std::function<bool()>& body);

  // Waits until one of the processes ends, which was running until now.
  Ended WaitForOne();

  // Waits for all of them. Returns what the first failed one had, or an empty text.
  std::string WaitForAll();

  // Kills a process that was started here, and waits for its end. False when it had ended before.
  bool Kill(pid_t pid);

  // Whether there is nothing to wait for in WaitForAll().
  bool AllHaveEnded() const;

  std::size_t running() const { return running_.size(); }

  // Far beyond what any of the tests needs on a busy machine.
  static constexpr unsigned kPatience = 240;

 private:
  std::set<pid_t> running_;
};

// What a status of waitpid says, for a message; empty for the exit status 0.
std::string DescribeStatus(int status);
