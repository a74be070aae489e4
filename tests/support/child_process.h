#pragma once

#include <sys/types.h>
#include <map>
#include <string>
#include <vector>

// A program that a test started: its standard output comes through a pipe, as its standard input
// may, and its standard error goes to a file. At the end of its life it is killed if it still runs.
class ChildProcess {
 public:
  struct Options {
    std::map<std::string, std::string> environment;  // on top of the test's own
    std::string error_file;                          // empty: shared with the test
    bool write_input = false;  // standard input comes from Write(); otherwise shared with the test
  };

  // Starts `command[0]`, a path or a name to look up in PATH. Ends the test program when it cannot.
  ChildProcess(const std::vector<std::string>& command, const Options& options);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  pid_t pid() const { return pid_; }

  // The next line of standard output, without its end. False at the end of the output.
  bool ReadLine(std::string& line);

  // Writes to standard input. Ends the test program when the program does not read it.
  void Write(const std::string& input) const;
  // Closes standard input.
  void EndInput();

  // Waits for the end of the program. Returns its exit status, or 128 and the signal's number.
  int Wait();

  // Sends a signal to the program while it runs.
  void Signal(int number) const;

 private:
  pid_t pid_ = -1;
  int input_ = -1;
  int output_ = -1;
  int status_ = -1;
  std::string pending_;
};
