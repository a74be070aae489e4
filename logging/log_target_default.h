#pragma once

#include <string>

#include "logging/line_writer.h"
#include "logging/log_file.h"
#include "logging/log_file_lock.h"
#include "logging/log_rotation.h"
#include "logging/log_target_base.h"
#include "logging/recovery_state.h"

namespace tarn {

// Appends each message to the log file as one line (see line_writer.h), which reaches the file by
// one write and before the call returns. Several processes can share the file (see
// log_file_lock.h).
//
// A file that has grown large is rotated (see log_rotation.h), and the next lines describe the
// machine (see log_header.h). The target checks the size when it is registered, and before a line
// whose predecessor in this process came 900 seconds or more after the last check: a clock that was
// set back counts as that as well. The same check notices that another program renamed, removed or
// replaced the file; then the target goes on in the file that the path leads to. It also opens a
// file again that went bad, for example on a full disk.
//
// Any thread may log once the target is registered, also while another thread registers it again,
// calls setLogFile() or forks. A message is dropped rather than written into another one's line:
// when the lock is not available, when memory is short, and while the file is bad.
//
// An override of WriteStream() may throw, and its thread may be canceled there: the locks are
// released. It must not log to its own target, which drops such a message. A cancellation waits for
// the end of a rotation.
class LogTargetDefault : public LogTargetBase {
 public:
  explicit LogTargetDefault(const char* identifier);
  ~LogTargetDefault() override = default;

  // Opens the file that setLogFile() named to append to it. A file that did not exist is created
  // with mode 0666. False for anything but a regular file or a link to one. A rotation opens the
  // target's own stream again without this function.
  bool SetStreamHandle(std::fstream& stream) override;

  // Chooses the file of that name in the user's log folder, for a target without setLogFile().
  // False for null, and when the folder is not available.
  bool SetStreamPath(const char* fileName);

  // Opens the file, attaches to its lock, and rotates when that is due. False when the file cannot
  // be opened. Without a lock the target is registered and drops its messages; it tries again to
  // create the lock, once a second at most. setLogFile() on a registered target changes the file
  // and keeps the lock of the first one: the new file must not have writers with another lock.
  bool onRegisterTarget() override;
  bool onUnregisterTarget() override;

  // Always true.
  bool writeLog(Log_Level level, const char* sessionId, const char* domain, const char* subDomain,
                const char* component, const char* detail1, const char* detail2, const char* format,
                va_list args, unsigned long long timestampMs, bool useLock) override
      TARN_PRINTF_METHOD(9, 0);

  // Always true. The lines are written without another process's between them.
  bool logHeader(Log_Level level, const char* sessionId, const char* domain, const char* subDomain,
                 const char* component, stLogHeader* header, bool useLock) override;

  // Writes one line and its newline to the file at once. The stream is bad after a null pointer.
  // The caller must hold the lock.
  virtual void WriteStream(const char* line);

  // Empties the file, which is created if missing, and closes the stream. The caller must hold the
  // lock.
  bool cleanFile();

  // Rotates when the file has reached the size for the target's level, and opens the stream again.
  // The old content is in the copy or, when that failed, in the file as before; the next line is
  // preceded by the header in both cases. False when the size cannot be read or the stream not be
  // opened. The argument is not read. The caller must hold the lock.
  bool SegmentLogFile(bool);

  // Removes old copies (see retention.h); those of the last `n` days may stay. Does nothing for 0
  // or less. The caller must hold the lock.
  void removeLogFilesExceptLastN(int n);

  // Fills the target's own header with what it lacks; the constructor has done it. Merged entries
  // stay.
  void initializeHeader();
  // Adds the names of secret_masking.h; the constructor has done it.
  void initializeXMLTagNameList();
  // MaskElements() of secret_masking.h with the target's names.
  void hideDataOfXMLTag(const char* message, std::string& masked);
  // MaskBetween() of secret_masking.h.
  void hideDataOfXMLTagHelper(std::string& text, const int& openPos, const int& closePos,
                              const int& openLen);

  std::string getLogLevelString(Log_Level level) const;

  // Writes the local time to the millisecond, as "11/15/26 21:05:07:042", to `buffer`, which has at
  // least kTimeSize bytes. Returns the length. Any thread may call it at any time.
  int getTimeStr(unsigned long long timestampMs, char* buffer);
  static constexpr std::size_t kTimeSize = LineWriter::kTimeSize;

  // Returns the kernel's number of the calling thread; empty where the system has none.
  std::string getCurrentThreadID() const;

  // Replaces `line` by the whole line without its newline. Any thread may call it at any time.
  void formatLog(unsigned long long timestampMs, Log_Level level, const char* sessionId,
                 const char* domain, const char* subDomain, const char* component,
                 const char* detail1, const char* detail2, const char* message, std::string& line);

 protected:
  // For files of other sizes.
  LogTargetDefault(const char* identifier, const LogRotation::Limits& limits);

 private:
  using Scope = LogFileLock::Scope;

  Scope Lock(bool use_lock);
  void Write(const LogRecord& record, bool use_lock);
  void WriteLine(const Scope& scope, const LogRecord& record);
  void WriteHeader(const Scope& scope, const LogRecord& columns, const stLogHeader& header);
  // Brings the file into a state that a line may follow. False when the lock was lost.
  bool PrepareFile(Scope& scope);
  bool UpdateFile(Scope& scope, bool is_new);
  bool AttachToFile(Scope& scope);
  bool CheckFile(Scope& scope);
  bool RotateFile(Scope& scope);

  LineWriter line_writer_;
  stLogHeader header_;
  std::string line_;  // the memory of the last line, guarded by lock_
  LogFileLock lock_;
  LogFile file_{stream_};
  RecoveryState state_;
  LogRotation rotation_;
};

}  // namespace tarn
