#include "tests/support/process_pool.h"

#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "tests/support/system_facilities.h"

namespace {

int WaitFor(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno == EINTR) continue;
    std::perror("waitpid");
    std::abort();
  }
  return status;
}

[[noreturn]] void RunChild(const std::function<bool()>& body, pid_t parent) {
  if (!EndWithParent(SIGKILL) || getppid() != parent) _exit(1);
  alarm(ProcessPool::kTimeoutSeconds);
  const bool good = body();
  // Calls exit() and not _exit(), because the sanitizers report at the regular end. exit() undoes
  // nothing of the test program, because it does not destroy the objects of functions.
  std::exit(good ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

std::string DescribeStatus(int status) {
  if (WIFEXITED(status)) {
    const int code = WEXITSTATUS(status);
    return code == 0 ? "" : "a process ended with status " + std::to_string(code);
  }
  if (WTERMSIG(status) == SIGALRM) return "a process hung";
  return "a process was ended by signal " + std::to_string(WTERMSIG(status));
}

ProcessPool::~ProcessPool() {
  for (const pid_t pid : running_)
    kill(pid, SIGKILL);
  for (const pid_t pid : running_)
    WaitFor(pid);
}

pid_t ProcessPool::Start(const std::function<bool()>& body) {
  const pid_t parent = getpid();
  std::fflush(nullptr);  // otherwise, the child would write the buffers again
  const pid_t pid = fork();
  if (pid < 0) {
    std::perror("fork");
    std::abort();
  }
  if (pid == 0) RunChild(body, parent);
  running_.insert(pid);
  return pid;
}

ProcessPool::Ended ProcessPool::WaitForOne() {
  for (;;) {
    int status = 0;
    const pid_t pid = waitpid(-1, &status, 0);
    if (pid < 0 && errno == EINTR) continue;
    if (pid < 0) return {-1, "there is no process to wait for"};
    if (running_.erase(pid) != 0) return {pid, DescribeStatus(status)};
  }
}

bool ProcessPool::AllHaveEnded() const {
  return std::all_of(running_.begin(), running_.end(), [](pid_t pid) {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == pid;
  });
}

std::string ProcessPool::WaitForAll() {
  std::string problem;
  while (!running_.empty()) {
    const Ended ended = WaitForOne();
    if (problem.empty()) problem = ended.problem;
    if (ended.pid < 0) break;
  }
  return problem;
}

bool ProcessPool::Kill(pid_t pid) {
  kill(pid, SIGKILL);
  running_.erase(pid);
  const int status = WaitFor(pid);
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}
