#pragma once

#include <cstdarg>
#include <fstream>
#include <string>

#include "logging/abstract_logger.h"
#include "logging/line_format.h"
#include "logging/log_header.h"
#include "platform/mutex.h"

namespace tarn {

// The common part of all log targets: identifier, level, log file, and a count of registrations.
//
// One thread sets up and registers a target before other threads log through it. A mutex guards
// only the count.
class LogTargetBase {
 public:
  // Calls setLogLevel(INFO) with the file name "TARN.log".
  LogTargetBase();
  LogTargetBase(const LogTargetBase&) = delete;
  LogTargetBase& operator=(const LogTargetBase&) = delete;

  // Opens the log file as `stream` for appending. Returns false when that fails.
  virtual bool SetStreamHandle(std::fstream& stream) = 0;

  // The creator of a target deletes it after it was unregistered.
  virtual ~LogTargetBase();

  // The logging core calls the first function before it registers the target, which may refuse by
  // returning false, and the second one after the last registration was withdrawn.
  virtual bool onRegisterTarget() = 0;
  virtual bool onUnregisterTarget() = 0;

  // Writes one message unless its level is below the target's. `format` is a printf format, and
  // `args` is used up; if `args` is null, `format` is the text itself. (Only some calling
  // conventions, such as that of x86-64, where a list is an array, allow a null list.) Null columns
  // count as empty. `timestampMs` is in milliseconds since the epoch; 0 stands for now. `useLock`
  // is false if the caller already holds the target's lock. The logging core ignores the result.
  virtual bool writeLog(Log_Level level, const char* sessionId, const char* domain,
                        const char* subDomain, const char* component, const char* detail1,
                        const char* detail2, const char* format, va_list args,
                        unsigned long long timestampMs, bool useLock) TARN_PRINTF_METHOD(9, 0) = 0;

  // Writes the lines of a header, each as a message with these columns. If `header` is null, writes
  // the target's own header. If `header->merge` is set, merges `header` into the target's own
  // header and writes that. Otherwise writes `header` alone.
  virtual bool logHeader(Log_Level level, const char* sessionId, const char* domain,
                         const char* subDomain, const char* component, stLogHeader* header,
                         bool useLock) = 0;

  // Sets the key under which the core registers the target. unregisterTarget() finds a target only
  // if it still has that key. Returns false and changes nothing for null.
  bool setIdentifier(const char* id);
  // The returned string belongs to the target.
  const char* getIdentifier() const { return identifier_.c_str(); }

  // Sets the level, which a marker file in the user's log folder can make more verbose. A marker
  // has the current name of the log with the extension "trace" or "debug" and selects that level;
  // "trace" takes precedence. If neither file exists, "pvx.trace" or "pvx.debug" does so. Creates
  // no folder.
  void setLogLevel(Log_Level level);
  Log_Level getLogLevel() const { return level_; }

  // Selects the log file: `fileName`, a name without a folder, in `folder`, which must exist. A
  // null or empty name keeps the current name. A null or empty folder stands for "Cirrane/CRN" in
  // the user's log folder; if missing, that folder is created, given to the console user and opened
  // to all users. A registered target continues in the new file.
  //
  // Returns false when the name contains a folder, the user's log folder is not available, or the
  // file cannot be opened. Then the target cannot be registered until a later call succeeds. A
  // registered target keeps its old file if the name or the log folder is the reason; otherwise it
  // has no open file.
  bool setLogFile(const char* fileName, const char* folder);

  void incrementRefCount();
  void decrementRefCount();
  // Reads the count without the mutex.
  int getRefCount() const PLATFORM_NO_THREAD_SAFETY_ANALYSIS { return ref_count_; }

 protected:
  std::string identifier_;
  std::string separator_{kDefaultSeparator};  // between the columns of a line
  std::string file_name_ = "TARN.log";
  std::string file_path_;  // empty until it is known
  Log_Level level_ = kDefaultLogLevel;
  std::fstream stream_;
  bool valid_ = true;  // false after setLogFile() failed
  bool registered_ = false;

 private:
  bool FindLogFolder(const char* folder, std::string& path) const;

  platform::Mutex ref_mutex_;
  int ref_count_ PLATFORM_GUARDED_BY(ref_mutex_) = 0;
};

}  // namespace tarn
