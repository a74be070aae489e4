#pragma once

#include <sys/types.h>
#include <map>
#include <string>
#include <vector>

// Runs a program for a test. Its standard output is a pipe to the test; its standard input may be a
// pipe, and its standard error may be a file. The destructor kills the program if it still runs.
class ChildProcess {
 public:
  struct Options {
    std::map<std::string, std::string> environment;  // in addition to the test's environment
    std::string error_file;                          // empty: shared with the test
    bool write_input = false;  // standard input comes from Write(); otherwise shared with the test
  };

  // Starts `command[0]`, a path or a name to look up in PATH. Aborts the test program when it
  // cannot create the process. The process ends with status 127 when the command cannot be
  // executed, and receives SIGTERM when the test program ends.
  ChildProcess(const std::vector<std::string>& command, const Options& options);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  pid_t pid() const { return pid_; }

  // Reads the next line of standard output, without its newline. Returns false at the end of the
  // output, and drops a last line without a newline.
  bool ReadLine(std::string& line);

  // Writes to standard input, which requires `write_input`. Ends the test program when that fails,
  // by SIGPIPE if the program no longer reads.
  void Write(const std::string& input) const;
  // Closes standard input.
  void EndInput();

  // Waits for the end of the program. Returns its exit status, or 128 plus the signal's number.
  // Later calls return the same status.
  int Wait();

  // Sends a signal to the program, unless Wait() has returned.
  void Signal(int number) const;

 private:
  pid_t pid_ = -1;
  int input_ = -1;
  int output_ = -1;
  int status_ = -1;
  std::string pending_;
};
