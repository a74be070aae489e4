#include "tests/support/child_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "tests/support/system_facilities.h"

namespace {

[[noreturn]] void Fail(const char* what) {
  std::perror(what);
  std::abort();
}

// Programs inherit neither end.
struct Pipe {
  Pipe() {
    int ends[2];
    if (pipe(ends) != 0) Fail("pipe");
    for (const int end : ends) {
      if (fcntl(end, F_SETFD, FD_CLOEXEC) != 0) Fail("fcntl");
    }
    read = ends[0];
    write = ends[1];
  }
  Pipe(int read_end, int write_end) : read(read_end), write(write_end) {}

  int read;
  int write;
};

// Runs in the child, after fork().
[[noreturn]] void Execute(const std::vector<std::string>& command,
                          const ChildProcess::Options& options, int input, int output) {
  // Ends the child with the test program, even when the test program is killed.
  if (!EndWithParent(SIGTERM)) _exit(126);
  if (input >= 0 && dup2(input, STDIN_FILENO) < 0) _exit(126);
  if (dup2(output, STDOUT_FILENO) < 0) _exit(126);
  if (!options.error_file.empty()) {
    const int error = open(options.error_file.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (error < 0 || dup2(error, STDERR_FILENO) < 0) _exit(126);
  }
  for (const auto& [name, value] : options.environment)
    setenv(name.c_str(), value.c_str(), 1);
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  std::perror(arguments[0]);
  _exit(127);
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command, const Options& options) {
  const Pipe output;
  const Pipe input = options.write_input ? Pipe() : Pipe(-1, -1);
  pid_ = fork();
  if (pid_ < 0) Fail("fork");
  if (pid_ == 0) Execute(command, options, input.read, output.write);
  close(output.write);
  output_ = output.read;
  if (input.read >= 0) close(input.read);
  input_ = input.write;
}

ChildProcess::~ChildProcess() {
  Signal(SIGKILL);
  Wait();
  close(output_);
  EndInput();
}

bool ChildProcess::ReadLine(std::string& line) {
  for (;;) {
    const auto end = pending_.find('\n');
    if (end != std::string::npos) {
      line = pending_.substr(0, end);
      pending_.erase(0, end + 1);
      return true;
    }
    char buffer[4096];
    const ssize_t size = read(output_, buffer, sizeof buffer);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return false;
    pending_.append(buffer, static_cast<std::size_t>(size));
  }
}

void ChildProcess::Write(const std::string& input) const {
  std::string_view rest = input;
  while (!rest.empty()) {
    const ssize_t size = write(input_, rest.data(), rest.size());
    if (size < 0 && errno != EINTR) Fail("write");
    if (size > 0) rest.remove_prefix(static_cast<std::size_t>(size));
  }
}

void ChildProcess::EndInput() {
  if (input_ >= 0) close(std::exchange(input_, -1));
}

int ChildProcess::Wait() {
  if (status_ >= 0) return status_;
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0) {
    if (errno != EINTR) Fail("waitpid");
  }
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return status_;
}

void ChildProcess::Signal(int number) const {
  if (status_ < 0) kill(pid_, number);  // fails only for an ended process
}
