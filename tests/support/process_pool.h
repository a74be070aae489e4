#pragma once

#include <sys/types.h>
#include <functional>
#include <set>
#include <string>

// Runs processes that are forked from the test program, which must have no other threads then.
// Kills processes that still run when the pool is destroyed or when the program ends.
class ProcessPool {
 public:
  struct Ended {
    pid_t pid = -1;
    std::string problem;  // empty: the process ended with success
  };

  ProcessPool() = default;
  ProcessPool(const ProcessPool&) = delete;
  ProcessPool& operator=(const ProcessPool&) = delete;
  ~ProcessPool();

  // Runs `body` in a new process, which succeeds when `body` returns true. A process that hangs is
  // killed after `kTimeoutSeconds` and counts as failed. Aborts the test program when it cannot
  // create the process.
  pid_t Start(const std::function<bool()>& body);

  // Waits until one of the running processes ends. Without a running process, `pid` is -1 and
  // `problem` is set. Also reaps other children of the test program, such as those of ChildProcess,
  // which then cannot wait for them.
  Ended WaitForOne();

  // Waits for all processes. Returns the problem of the first failed one, or an empty string.
  std::string WaitForAll();

  // Kills a running process of this pool, or one that ended without being waited for, and waits for
  // it. Returns false when the process had already ended.
  bool Kill(pid_t pid);

  // Returns true when WaitForAll() would not block.
  bool AllHaveEnded() const;

  std::size_t running() const { return running_.size(); }

  // Far more time than any test needs on a busy machine.
  static constexpr unsigned kTimeoutSeconds = 240;

 private:
  std::set<pid_t> running_;
};

// Returns a message for a status of waitpid(). Returns an empty string for the exit status 0.
std::string DescribeStatus(int status);
