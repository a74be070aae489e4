#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "logging/binary_lock.h"
#include "logging/log_target_base.h"
#include "logging/write_mark.h"

namespace tarn {

// Appends each message to the log file as one line (see line_format.h), which reaches the file by
// one write and before the call returns. Several processes can share the file.
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

  // Opens the file and attaches to its lock. False when the file cannot be opened; without a lock
  // the target is registered and drops everything. A later setLogFile() keeps that lock.
  bool onRegisterTarget() override;
  bool onUnregisterTarget() override;

  // Always true.
  bool writeLog(Log_Level level, const char* sessionId, const char* domain, const char* subDomain,
                const char* component, const char* detail1, const char* detail2, const char* format,
                va_list args, unsigned long long timestampMs, bool useLock) override
      TARN_PRINTF_METHOD(9, 0);

  // Writes one line and its newline to the file at once. For the holder of the lock.
  virtual void WriteStream(const char* line);

  // Empties the file; the stream is closed then. For the holder of the lock.
  bool cleanFile();

  std::string getLogLevelString(Log_Level level) const;

  // The time as the line has it, local and to the millisecond: "11/15/26 21:05:07:042". `buffer`
  // has at least kTimeSize bytes. Returns the length. For one thread at a time.
  int getTimeStr(unsigned long long timestampMs, char* buffer);
  static constexpr std::size_t kTimeSize = 256 + sizeof ":123";

  // The kernel's number of the calling thread; empty where the system has none.
  std::string getCurrentThreadID() const;

  // The whole line without its newline, into `line`. For one thread at a time.
  void formatLog(unsigned long long timestampMs, Log_Level level, const char* sessionId,
                 const char* domain, const char* subDomain, const char* component,
                 const char* detail1, const char* detail2, const char* message, std::string& line);

 private:
  void EndTornLine();

  std::mutex threads_;  // taken before the lock: a thread that waits for it need not be woken twice
  std::unique_ptr<BinaryLock> lock_;  // null before the first registration
  WriteMark mark_;
  bool end_is_known_ = false;  // else the file may end in a torn line of before the last start
  bool thread_id_enabled_ = true;
  long long last_log_time_ = -1;  // the second of second_text_
  std::string second_text_;
  std::string line_;  // this and the next keep their memory from line to line
  std::string output_;
  std::vector<char> stream_buffer_;
};

}  // namespace tarn
