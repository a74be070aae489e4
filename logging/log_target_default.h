#pragma once

#include <string>

#include "logging/line_writer.h"
#include "logging/log_file.h"
#include "logging/log_file_lock.h"
#include "logging/log_rotation.h"
#include "logging/log_target_base.h"
#include "logging/recovery_state.h"

namespace tarn {

// Appends each message to the log file as one line (see line_writer.h). One write brings the line
// to the file before the call returns. Several processes can share the file (see log_file_lock.h).
//
// A large file is rotated and old copies are removed (see log_rotation.h), and the next lines
// describe the machine (see log_header.h). The target checks the size when it is registered, and
// before a line if the previous line of this process came 900 seconds or more after the last check
// or if the clock was set back. The same check detects that another program renamed, removed or
// replaced the file; then the target continues in the file that the path leads to. The check also
// reopens a file that went bad, for example on a full disk.
//
// Any thread may log once the target is registered, even while another thread registers it again,
// calls setLogFile() or forks. A message is dropped when the lock is not available, when memory is
// short, and while the file is bad, because it might be written into another line.
//
// An override of WriteStream() may throw, and its thread may be canceled there; the locks are then
// released. The override must not log to its own target, which drops such a message unless
// `useLock` is false. A cancellation waits for the end of a rotation.
class LogTargetDefault : public LogTargetBase {
 public:
  // A null identifier counts as empty.
  explicit LogTargetDefault(const char* identifier);
  ~LogTargetDefault() override = default;

  // Opens the file selected by setLogFile() for appending. Creates a missing file with mode 0666.
  // Returns false for anything but a regular file or a link to one. A rotation reopens the target's
  // own stream without this function.
  bool SetStreamHandle(std::fstream& stream) override;

  // Selects the file of that name in the user's log folder, for a target without setLogFile(). Does
  // not open the file. Returns false for null and when the folder is not available.
  bool SetStreamPath(const char* fileName);

  // Opens the file, attaches to its lock, and rotates the file if that is due. Returns false after
  // a failed setLogFile(), when the file cannot be opened, and when memory is short. Without a
  // lock, the target is registered but drops its messages, and tries to create the lock at most
  // once a second. setLogFile() on a registered target changes the file but keeps the lock of the
  // first file: no writer of the new file may use another lock.
  bool onRegisterTarget() override;
  // Closes the file and detaches from its lock. Always returns true.
  bool onUnregisterTarget() override;

  // Always returns true. Cuts a message formatted with `args` after 4094 bytes; a `format` without
  // `args` has no limit.
  bool writeLog(Log_Level level, const char* sessionId, const char* domain, const char* subDomain,
                const char* component, const char* detail1, const char* detail2, const char* format,
                va_list args, unsigned long long timestampMs, bool useLock) override
      TARN_PRINTF_METHOD(9, 0);

  // Always returns true. No line of another process comes between the lines.
  bool logHeader(Log_Level level, const char* sessionId, const char* domain, const char* subDomain,
                 const char* component, stLogHeader* header, bool useLock) override;

  // Writes one line and its newline to the file with one call. The stream is bad after a null
  // pointer. The caller must hold the lock.
  virtual void WriteStream(const char* line);

  // Empties the file and closes the stream. Creates a missing file. Messages are dropped until the
  // next registration, setLogFile() or check reopens the file. Returns false when the file cannot
  // be opened or emptied; the stream is closed in that case as well. The caller must hold the lock.
  bool cleanFile();

  // If the file has reached the size for the target's level, rotates it, reopens the stream, and
  // removes old copies unless KeepsAllCopies() returns true. The old content is then in the copy
  // or, after a failure, still in the file; the header precedes the next line in both cases.
  // Returns false when the size cannot be read or the stream cannot be opened. The argument is
  // ignored. The caller must hold the lock.
  bool SegmentLogFile(bool);

  // Calls LogRotation::RemoveOldCopies() for the last `n` days; 0 or less removes nothing. The
  // caller must hold the lock.
  void removeLogFilesExceptLastN(int n);

  // Adds the entries of DescribeSystem() to the target's own header. Merged entries stay. The
  // constructor calls it.
  void initializeHeader();
  // Adds SecretElementNames() to the target's names. The constructor calls it.
  void initializeXMLTagNameList();
  // Calls MaskElements() of secret_masking.h with the target's names. `masked` must be a copy of
  // `message`. A null message counts as empty.
  void hideDataOfXMLTag(const char* message, std::string& masked);
  // Calls MaskBetween() of secret_masking.h.
  void hideDataOfXMLTagHelper(std::string& text, const int& openPos, const int& closePos,
                              const int& openLen);

  // Returns LevelName() of line_format.h.
  std::string getLogLevelString(Log_Level level) const;

  // Writes the local time with milliseconds, as "11/15/26 21:05:07:042", to `buffer`, which must
  // have at least kTimeSize bytes. Returns the length without the terminating zero. Any thread may
  // call it at any time.
  int getTimeStr(unsigned long long timestampMs, char* buffer);
  static constexpr std::size_t kTimeSize = LineWriter::kTimeSize;

  // Returns the kernel's identifier of the calling thread, or an empty string if the system has no
  // such identifier.
  std::string getCurrentThreadID() const;

  // Replaces the content of `line` with the whole line, its secrets masked, without its newline.
  // Null strings count as empty. Any thread may call it at any time.
  void formatLog(unsigned long long timestampMs, Log_Level level, const char* sessionId,
                 const char* domain, const char* subDomain, const char* component,
                 const char* detail1, const char* detail2, const char* message, std::string& line);

 protected:
  // Uses other limits for rotation.
  LogTargetDefault(const char* identifier, const LogRotation::Limits& limits);

 private:
  using Scope = LogFileLock::Scope;

  Scope Lock(bool use_lock);
  void Write(const LogRecord& record, bool use_lock);
  void WriteLine(const Scope& scope, const LogRecord& record);
  void WriteHeader(const Scope& scope, const LogRecord& columns, const stLogHeader& header);
  // Prepares the file for the next line. Returns false when the lock was lost.
  bool PrepareFile(Scope& scope);
  bool UpdateFile(Scope& scope, bool is_new);
  bool AttachToFile(Scope& scope);
  bool CheckFile(Scope& scope);
  bool RotateFile(Scope& scope);

  LineWriter line_writer_;
  stLogHeader header_;
  std::string line_;  // keeps its memory from line to line; guarded by lock_
  LogFileLock lock_;
  LogFile file_{stream_};
  RecoveryState state_;
  LogRotation rotation_;
};

}  // namespace tarn
