#pragma once

#include <sys/types.h>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "logging/binary_lock.h"
#include "logging/line_writer.h"
#include "logging/log_file_marks.h"
#include "logging/log_target_base.h"

namespace tarn {

// Appends each message to the log file as one line (see line_format.h), which reaches the file by
// one write and before the call returns. Several processes can share the file.
//
// Secrets are taken out of a message first (see secret_masking.h). A file that has grown large is
// copied and emptied (see rotation.h), and old copies are removed (see retention.h); the lines
// about the machine (see log_header.h) come next then. Whether it is time for that is looked up
// when the target is registered, and by a line whose predecessor in this process is 900 seconds or
// more younger than the last look: a clock that is set back counts as that, too.
//
// Any thread may log once the target is registered: the threads of the process take turns by a
// mutex, and the processes by the file's BinaryLock. A message that the lock cannot be had for is
// dropped, rather than written into another's line. So is every message after the file went bad,
// for example on a full disk.
class LogTargetDefault : public LogTargetBase {
 public:
  explicit LogTargetDefault(const char* identifier);
  ~LogTargetDefault() override;

  // Appends to the file that setLogFile() named. A file that did not exist is created, open to
  // everyone.
  bool SetStreamHandle(std::fstream& stream) override;

  // The file of that name in the user's log folder, to be used when setLogFile() named none. False
  // when the folder is not to be had.
  bool SetStreamPath(const char* fileName);

  // Opens the file, attaches to its lock, and rotates when that is due. False when the file cannot
  // be opened; without a lock the target is registered and drops everything. A later setLogFile()
  // keeps that lock.
  bool onRegisterTarget() override;
  bool onUnregisterTarget() override;

  // Always true.
  bool writeLog(Log_Level level, const char* sessionId, const char* domain, const char* subDomain,
                const char* component, const char* detail1, const char* detail2, const char* format,
                va_list args, unsigned long long timestampMs, bool useLock) override
      TARN_PRINTF_METHOD(9, 0);

  // Always true.
  bool logHeader(Log_Level level, const char* sessionId, const char* domain, const char* subDomain,
                 const char* component, stLogHeader* header, bool useLock) override;

  // Writes one line and its newline to the file at once. For the holder of the lock.
  virtual void WriteStream(const char* line);

  // Empties the file; the stream is closed then. For the holder of the lock.
  bool cleanFile();

  // Rotates when the file has reached the size for the target's level. What was in it is then in
  // the copy or, when that could not be made whole, still in the file, and the next line is
  // preceded by the header in both cases. False when the size cannot be read, or the file cannot be
  // opened again. The argument is not read. For the holder of the lock.
  bool SegmentLogFile(bool);
  // Lets tests rotate at another size, in bytes, whatever the level is, and look that up after
  // another time, in seconds.
  void setSegmentLimitsForTests(long long bytes, unsigned long long seconds) {
    segment_size_ = bytes;
    segment_interval_ = seconds;
  }

  // Removes what retention.h says, where copies of the last `n` days stay; nothing for 0 or less.
  // For the holder of the lock.
  void removeLogFilesExceptLastN(int n);

  // Fills the target's own header; the constructor has done it.
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

 private:
  void Write(const LogRecord& record, bool useLock);
  void WriteLine(const LogRecord& record);
  void PrepareFile();
  void EndTornLine();
  void FinishRotation();
  void MoveContentToCopy(long long size);
  bool IsOpenFile() const;
  void WriteDueHeader(const LogRecord& record);

  std::mutex threads_;  // taken before the lock: a thread that waits for it need not be woken twice
  std::unique_ptr<BinaryLock> lock_;  // null before the first registration
  LogFileMarks marks_;
  bool end_is_known_ = false;  // else the file may end in a torn line of before the last start
  stLogHeader header_;
  bool header_pending_ = false;  // with marks, what they say of it counts
  bool writes_header_ = false;
  LineWriter line_writer_;
  long long segment_size_ = 0;           // 0 for that of the level
  unsigned long long segment_interval_;  // in seconds, as the next one is since the epoch
  unsigned long long last_segment_check_ = 0;
  std::vector<char> stream_buffer_;
  ino_t file_inode_ = 0;  // of the file that was opened last
  dev_t file_device_ = 0;
};

}  // namespace tarn
