#pragma once

#include <sys/stat.h>
#include <string>

#include "logging/log_file.h"
#include "logging/log_level.h"
#include "logging/recovery_state.h"

namespace tarn {

// Returns whether the marker file "pvx.trace" in the log's folder prevents the removal of copies:
// it holds "keeplogs" and nothing else, not even a newline. True as well when the system is too
// short of memory or descriptors to read it, or the disk fails.
bool KeepsAllCopies(const std::string& folder);

// Keeps a log file small: moves the content of a large file to a copy (see rotated_copy.h) and
// removes old copies (see retention.h).
//
// A rotation copies the content under a hidden name, empties the log, and names the copy. A log
// beyond Limits::max_copied_size becomes the copy itself by a change of its name. A process can be
// killed anywhere in between: Recover() sees what is left from the files alone.
//
// The scopes must be held.
class LogRotation {
 public:
  // The size from which on a log of that level is rotated, in bytes: the more a level writes, the
  // more of it is of use in one file.
  static long long SegmentSize(Log_Level level);

  struct Limits {
    long long segment_size = 0;                  // in bytes, for every level; 0 for SegmentSize()
    unsigned long long check_interval = 900;     // in seconds
    long long max_copied_size = kMaxCopiedSize;  // in bytes
  };
  // To copy that much takes some seconds, in which nobody can log.
  static constexpr long long kMaxCopiedSize = 256LL << 20;

  // `file` and `state` must outlive this object.
  LogRotation(LogFile& file, RecoveryState& state, const Limits& limits);

  // Returns whether the size of the file is to be checked: the previous line of this process was
  // written that many seconds after the last check. Times are seconds since the epoch. A clock that
  // was set back makes the check due as well.
  bool IsCheckDue(unsigned long long last_log_time) const;
  void SetChecked(unsigned long long time) { last_check_ = time; }
  // Makes the check due for the next line, whenever that comes.
  void RequestCheck() { last_check_ = kNever; }

  enum class Result {
    kNoSize,   // The size cannot be read.
    kSmall,    // The file is below its limit, or the path leads to another file.
    kRotated,  // The content is in the copy or, after a failure, in the log as before.
    kMoved,    // The log has the hidden name: the caller opens a new one, and Recover() names this.
  };
  // Rotates the file when it has reached its limit. Then the header is due, and the caller opens
  // the stream again. A scope that stands for a caller keeps the file: its lock cannot move.
  Result Rotate(const LogFileLock::Scope& lock, Log_Level level);

  // Completes a rotation that ended early, in this process or in another: names the copy, or
  // removes it when the content is still in the log. Does nothing while the path leads to another
  // file.
  void Recover(const LogFileLock::Scope& lock);
  // Returns whether Recover() is to be called before a line. An attempt can read the whole log, so
  // after one that failed the next is for the next check of the size.
  bool NeedsRecovery() const { return state_.rotating() && !recovery_failed_; }

  // Removes old copies; those of the last `days` days may stay. The copy that Rotate() or Recover()
  // made before counts as the newest. Does nothing for 0 days or less. A copy that cannot be
  // removed stays until the next rotation.
  void RemoveOldCopies(const LogFileLock::Scope& lock, int days);

 private:
  void Copy(const LogFileLock::Scope& lock, const std::string& unfinished);
  bool Move(const LogFileLock::Scope& lock, const std::string& unfinished);
  bool IsMovable(const LogFileLock::Scope& lock, long long size) const;
  void Settle(const LogFileLock::Scope& lock, const struct stat& attributes,
              const std::string& unfinished);
  void SettleReadable(const LogFileLock::Scope& lock, const platform::FileDescriptor& copy,
                      const std::string& unfinished);
  void SettleUnreadable(const LogFileLock::Scope& lock, const struct stat& copy,
                        const std::string& unfinished);
  void NameUnfinished(const LogFileLock::Scope& lock, const struct stat& log,
                      const std::string& unfinished);
  void EndRotation(const LogFileLock::Scope& lock, const std::string& unfinished);

  LogFile& file_;
  RecoveryState& state_;
  const Limits limits_;
  static constexpr unsigned long long kNever = 0;
  unsigned long long last_check_ = kNever;
  bool recovery_failed_ = false;
  std::string newest_;  // the path of the copy made since RemoveOldCopies(), or empty
};

}  // namespace tarn
