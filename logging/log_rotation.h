#pragma once

#include <sys/stat.h>
#include <string>

#include "logging/log_file.h"
#include "logging/log_level.h"
#include "logging/recovery_state.h"

namespace tarn {

// Returns whether the marker file "pvx.trace" in the log's folder prevents the removal of copies.
// The file must contain "keeplogs" and nothing else, not even a newline. Also returns true when the
// file cannot be read because memory or descriptors are short or because the disk fails.
bool KeepsAllCopies(const std::string& folder);

// Rotates a log file: moves the content of a large file to a copy (see rotated_copy.h) and removes
// old copies (see retention.h).
//
// A rotation copies the content to a hidden name, empties the log, and names the copy. A log larger
// than Limits::max_copied_size is renamed and becomes the copy itself. A process can be killed
// between any two of these steps: Recover() derives the next step from the files alone.
//
// A function with a scope parameter requires that the scope holds the lock (see Scope::held()).
class LogRotation {
 public:
  // Returns the size in bytes at which a log of that level is rotated. A more verbose level has a
  // larger file.
  static long long SegmentSize(Log_Level level);

  struct Limits {
    long long segment_size = 0;                  // in bytes, for every level; 0 for SegmentSize()
    unsigned long long check_interval = 900;     // in seconds
    long long max_copied_size = kMaxCopiedSize;  // in bytes
  };
  // Copying this much takes some seconds, during which no process can log.
  static constexpr long long kMaxCopiedSize = 256LL << 20;

  // `file` and `state` must outlive this object.
  LogRotation(LogFile& file, RecoveryState& state, const Limits& limits);

  // Returns whether the size of the file must be checked: the previous line of this process, at
  // `last_log_time`, was written Limits::check_interval seconds or more after the last check. Times
  // are in seconds since the epoch. A clock that was set back also makes the check due.
  bool IsCheckDue(unsigned long long last_log_time) const;
  void SetChecked(unsigned long long time) { last_check_ = time; }
  // Makes the check due for the next line.
  void RequestCheck() { last_check_ = kNever; }

  enum class Result {
    kNoSize,   // The size cannot be read.
    kSmall,    // The file is below its limit, or the path leads to another file.
    kRotated,  // The content is in the copy or, after a failure, in the log as before.
    kMoved,    // The log has the hidden name.
  };
  // Rotates the file if it has reached its limit. After kRotated, the header is due and the caller
  // must reopen the stream. After kMoved, the caller must open a new log and call Recover(), which
  // names the copy and makes the header due. A log is never renamed under a HeldByCaller scope,
  // because the lock of such a scope cannot move to the new file.
  Result Rotate(const LogFileLock::Scope& lock, Log_Level level);

  // Completes an interrupted rotation of this or another process: names the copy, or removes the
  // copy if its content is still in the log. Does nothing while the path leads to another file.
  void Recover(const LogFileLock::Scope& lock);
  // Returns whether Recover() must be called before a line. An attempt can read the whole log, so a
  // failed attempt is not repeated before the next check of the size.
  bool NeedsRecovery() const { return state_.rotating() && !recovery_failed_; }

  // Removes old copies (see SelectCopiesToRemove()). Does not check KeepsAllCopies(). Copies of the
  // last `days` days, which include today, may stay; 0 or less removes nothing. The copy that
  // Rotate() or Recover() made counts as the newest. A copy that cannot be removed stays until the
  // next rotation.
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
