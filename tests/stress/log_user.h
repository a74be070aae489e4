#pragma once

#include <string>

#include "logging/logger.h"
#include "tests/stress/numbered_line.h"
#include "tests/support/limited_target.h"

// A process's use of the log file, as a program has it: one target, registered with the core.
class LogUser {
 public:
  // Only in processes that do nothing else with the core. The folder exists. With a segment size,
  // in bytes, each line looks whether the file has reached that. A file beyond `max_copied_size` is
  // renamed instead of copied.
  LogUser(const std::string& folder, const std::string& file, long long segment_size = 0,
          long long max_copied_size = tarn::LogRotation::kMaxCopiedSize);
  LogUser(const LogUser&) = delete;
  LogUser& operator=(const LogUser&) = delete;

  // False when the library refuses. Detach() follows every successful Attach().
  bool Attach();
  bool Detach();

  // The name of the core's entry, for loggers.
  static constexpr char kIdentifier[] = "stress";

 private:
  std::string folder_;
  std::string file_;
  LimitedTarget target_;
};

// A logger whose lines are numbered. Each thread has its own.
class NumberedLogger {
 public:
  NumberedLogger(int writer, long most_text);

  // Writes the next line and returns when the library says that it has done so.
  void WriteNext();

  // The number of the last line.
  long written() const { return line_.number; }

 private:
  NumberedLine line_;
  tarn::Logger logger_;
};
