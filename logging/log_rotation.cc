#include "logging/log_rotation.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "logging/file_utils.h"
#include "logging/retention.h"
#include "logging/rotated_copy.h"
#include "logging/time_utils.h"
#include "platform/folder_tree.h"
#include "platform/retry.h"

namespace tarn {
namespace {

constexpr long long kMebibyte = 1 << 20;

// A name that cannot be looked up counts as existing.
bool Exists(const std::string& path) {
  struct stat attributes {};
  return lstat(path.c_str(), &attributes) == 0 || errno != ENOENT;
}

// Returns whether an error of open() or read() has its cause in the system, not in the file.
bool IsShortage(int error) {
  return error == EMFILE || error == ENFILE || error == ENOMEM || error == EIO;
}

}  // namespace

bool KeepsAllCopies(const std::string& folder) {
  // O_NONBLOCK: a pipe without a writer must not block.
  const platform::FileDescriptor marker(
      open((folder + "//pvx.trace").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  // Has room for one character more than the text, so that a longer content does not match. The
  // final zero is never overwritten.
  char text[sizeof "keeplogs" + 1] = "";
  const auto read_marker = [&] { return read(marker.number(), text, sizeof text - 1); };
  const ssize_t count = marker.is_open() ? platform::RetryWhenInterrupted(read_marker) : -1;
  return count == -1 ? IsShortage(errno) : std::strcmp(text, "keeplogs") == 0;
}

long long LogRotation::SegmentSize(Log_Level level) {
  if (level == TRACE) return 50 * kMebibyte;
  if (level == DEBUG) return 20 * kMebibyte;
  return 10 * kMebibyte;
}

LogRotation::LogRotation(LogFile& file, RecoveryState& state, const Limits& limits)
    : file_(file), state_(state), limits_(limits) {}

bool LogRotation::IsCheckDue(unsigned long long last_log_time) const {
  return last_log_time - last_check_ >= limits_.check_interval;
}

LogRotation::Result LogRotation::Rotate(const LogFileLock::Scope& lock, Log_Level level) {
  long long size = 0;
  if (!getFileSize(file_.path(), size)) return Result::kNoSize;
  const long long limit = limits_.segment_size != 0 ? limits_.segment_size : SegmentSize(level);
  if (size < limit || !file_.IsAtPath()) return Result::kSmall;
  Recover(lock);
  const std::string unfinished = UnfinishedCopy(file_.path());
  if (Exists(unfinished)) {
    state_.SetHeaderDue(lock, true);
    return Result::kRotated;
  }
  newest_.clear();
  if (IsMovable(lock, size) && Move(lock, unfinished)) return Result::kMoved;
  Copy(lock, unfinished);
  return Result::kRotated;
}

// Excludes symbolic links, because rename() would move the link, and files with a second name,
// because Recover() would take that name for the name of the copy.
bool LogRotation::IsMovable(const LogFileLock::Scope& lock, long long size) const {
  struct stat attributes {};
  return lock.can_move() && size > limits_.max_copied_size &&
         lstat(file_.path().c_str(), &attributes) == 0 && S_ISREG(attributes.st_mode) &&
         attributes.st_nlink == 1;
}

// Clears the words: a set word would keep the shared words for the next start, but a copy has no
// use for them.
bool LogRotation::Move(const LogFileLock::Scope& lock, const std::string& unfinished) {
  if (std::rename(file_.path().c_str(), unfinished.c_str()) != 0) return false;
  if (file_.EndTornLine(lock, state_.may_be_torn())) state_.SetWriting(lock, false);
  state_.SetHeaderDue(lock, false);
  return true;
}

void LogRotation::Copy(const LogFileLock::Scope& lock, const std::string& unfinished) {
  state_.SetRotating(lock, true);
  const platform::FileDescriptor log = file_.OpenAgain(O_RDONLY);
  const bool copied = log.is_open() && MakeUnfinishedCopy(log.number(), unfinished);
  state_.SetHeaderDue(lock, true);  // the next writer begins with the header
  if (copied && file_.Truncate(lock)) {
    NameCopy(unfinished, file_.path(), newest_);
  } else {
    unlink(unfinished.c_str());
  }
  EndRotation(lock, unfinished);
}

void LogRotation::EndRotation(const LogFileLock::Scope& lock, const std::string& unfinished) {
  recovery_failed_ = Exists(unfinished);
  state_.SetRotating(lock, recovery_failed_);
}

void LogRotation::Recover(const LogFileLock::Scope& lock) {
  recovery_failed_ = !file_.IsAtPath();
  if (recovery_failed_) return;
  newest_.clear();
  const std::string unfinished = UnfinishedCopy(file_.path());
  struct stat attributes {};
  if (lstat(unfinished.c_str(), &attributes) == 0) Settle(lock, attributes, unfinished);
  EndRotation(lock, unfinished);
}

void LogRotation::Settle(const LogFileLock::Scope& lock, const struct stat& attributes,
                         const std::string& unfinished) {
  if (!S_ISREG(attributes.st_mode)) {
    ClearUnfinishedPath(unfinished);
    return;
  }
  if (attributes.st_nlink > 1) {  // the copy already has its name
    unlink(unfinished.c_str());   // after a failure, the next check of the size tries again
    return;
  }
  const platform::FileDescriptor copy(
      open(unfinished.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (copy.is_open()) {
    SettleReadable(lock, copy, unfinished);
  } else if (errno == EACCES) {
    SettleUnreadable(lock, attributes, unfinished);
  }
}

// If the log begins with the content of the copy, the log was not emptied and the copy is not
// needed. Any other copy holds all that remains of its content. The header's state is set first, in
// case this process ends early as well.
void LogRotation::SettleReadable(const LogFileLock::Scope& lock,
                                 const platform::FileDescriptor& copy,
                                 const std::string& unfinished) {
  const platform::FileDescriptor file = file_.OpenAgain(O_RDONLY);
  struct stat log {};
  if (!file.is_open() || fstat(file.number(), &log) != 0) return;
  switch (CompareBeginning(file.number(), copy.number())) {
    case Beginning::kSame:
      state_.SetHeaderDue(lock, false);
      unlink(unfinished.c_str());  // after a failure, the next check of the size tries again
      return;
    case Beginning::kDifferent:
      NameUnfinished(lock, log, unfinished);
      return;
    case Beginning::kUnknown:
      return;
  }
}

// The file of another user may be all that remains of its content. Duplicate lines are better than
// a log that no other user can rotate.
void LogRotation::SettleUnreadable(const LogFileLock::Scope& lock, const struct stat& copy,
                                   const std::string& unfinished) {
  struct stat log {};
  if (stat(file_.path().c_str(), &log) != 0) return;
  if (IsPartOfLog(copy, log)) {
    state_.SetHeaderDue(lock, false);
    unlink(unfinished.c_str());  // after a failure, the next check of the size tries again
  } else {
    NameUnfinished(lock, log, unfinished);
  }
}

void LogRotation::NameUnfinished(const LogFileLock::Scope& lock, const struct stat& log,
                                 const std::string& unfinished) {
  if (log.st_size == 0) state_.SetHeaderDue(lock, true);
  NameCopy(unfinished, file_.path(), newest_);
}

void LogRotation::RemoveOldCopies(const LogFileLock::Scope& /*lock*/, int days) {
  const std::string newest = NamesOf(std::exchange(newest_, "")).live;
  std::vector<std::string> dates;
  for (int day = 0; day < days; ++day) {
    std::string date;
    if (!getOffSetDate(date, -day)) return;
    dates.push_back(date);
  }
  if (dates.empty() || file_.path().empty()) return;
  const LogFileNames log = NamesOf(file_.path());
  std::vector<std::string> names;
  platform::ListTree(log.folder, log.base, names);
  for (const std::string& name : SelectCopiesToRemove(names, log, newest, dates))
    platform::RemoveFromTree(log.folder, name);
}

}  // namespace tarn
