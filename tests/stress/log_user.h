#pragma once

#include <string>

#include "logging/logger.h"
#include "tests/stress/numbered_line.h"
#include "tests/support/limited_target.h"

// Uses the log file as a program does: one target, registered with the core.
class LogUser {
 public:
  // The process must not use the core otherwise, and the folder must exist. If `segment_size`, in
  // bytes, is not 0, each line checks whether the file has reached it. A file larger than
  // `max_copied_size` is renamed instead of copied.
  LogUser(const std::string& folder, const std::string& file, long long segment_size = 0,
          long long max_copied_size = tarn::LogRotation::kMaxCopiedSize);
  LogUser(const LogUser&) = delete;
  LogUser& operator=(const LogUser&) = delete;

  // Returns false when the library refuses. Each successful Attach() requires a Detach().
  bool Attach();
  bool Detach();

  // The identifier of the target, for loggers.
  static constexpr char kIdentifier[] = "stress";

 private:
  std::string folder_;
  std::string file_;
  LimitedTarget target_;
};

// Writes numbered lines. Each thread needs its own object.
class NumberedLogger {
 public:
  NumberedLogger(int writer, long max_text);

  // Writes the next line and returns when the call of the library has returned.
  void WriteNext();

  // The number of the last line.
  long written() const { return line_.number; }

 private:
  NumberedLine line_;
  tarn::Logger logger_;
};
