#include "tests/stress/stepped_process.h"

#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

// The time without progress after which a process counts as waiting. The assertions of the tests
// also hold if the process was only slow.
constexpr timespec kBusyAfter{0, 20000000};

[[noreturn]] void Fail(const char* what) {
  std::perror(what);
  std::abort();
}

[[noreturn]] void RunChild(const std::function<bool()>& body) {
  if (prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) _exit(2);
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(2);
  raise(SIGSTOP);
  _exit(body() ? 0 : 1);
}

sigset_t ChildSignal() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGCHLD);
  return signals;
}

}  // namespace

SteppedProcess::SteppedProcess(const std::function<bool()>& body) {
  // Keeps the signal pending for sigtimedwait().
  const sigset_t signals = ChildSignal();
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  std::fflush(nullptr);
  pid_ = fork();
  if (pid_ < 0) Fail("fork");
  if (pid_ == 0) RunChild(body);
  int status = 0;
  if (waitpid(pid_, &status, 0) != pid_ || !WIFSTOPPED(status)) Fail("ptrace");
}

SteppedProcess::~SteppedProcess() {
  if (state_ == State::kStopped || state_ == State::kBusy) Kill();
}

void SteppedProcess::Kill() {
  kill(pid_, SIGKILL);
  int status = 0;
  do {
    if (waitpid(pid_, &status, 0) != pid_) Fail("waitpid");
  } while (WIFSTOPPED(status));
  state_ = State::kFailed;
}

bool SteppedProcess::Resume(int request) {
  return ptrace(static_cast<__ptrace_request>(request), pid_, nullptr, nullptr) == 0;
}

// Waits until the process stops or ends.
SteppedProcess::State SteppedProcess::Await(bool stops_count) {
  const sigset_t signals = ChildSignal();
  for (;;) {
    int status = 0;
    const pid_t pid = waitpid(pid_, &status, WNOHANG);
    if (pid < 0) Fail("waitpid");
    if (pid == 0) {
      if (sigtimedwait(&signals, nullptr, &kBusyAfter) < 0 && errno == EAGAIN) return State::kBusy;
    } else if (!WIFSTOPPED(status)) {
      return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? State::kGood : State::kFailed;
    } else if (stops_count) {
      return State::kStopped;
    } else if (!Resume(PTRACE_CONT)) {
      Fail("ptrace");
    }
  }
}

SteppedProcess::State SteppedProcess::Step() {
  if (state_ == State::kStopped && !Resume(PTRACE_SYSCALL)) Fail("ptrace");
  if (state_ == State::kStopped || state_ == State::kBusy) state_ = Await(true);
  return state_;
}

SteppedProcess::State SteppedProcess::Step(int steps) {
  for (int i = 0; i < steps && Step() == State::kStopped;)
    ++i;
  return state_;
}

SteppedProcess::State SteppedProcess::Run() {
  if (state_ == State::kStopped && !Resume(PTRACE_CONT)) Fail("ptrace");
  if (state_ == State::kStopped || state_ == State::kBusy) state_ = Await(false);
  return state_;
}
