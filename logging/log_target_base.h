#pragma once

#include <cstdarg>
#include <fstream>
#include <string>

#include "logging/abstract_logger.h"
#include "logging/line_format.h"
#include "logging/log_header.h"
#include "platform/mutex.h"

namespace tarn {

// What every log target has: identifier, level, log file, and a count of its registrations.
//
// A target is set up and registered on one thread, before others log through it. Only the count is
// locked.
class LogTargetBase {
 public:
  // The level is that of setLogLevel(INFO), the file name "TARN.log".
  LogTargetBase();
  LogTargetBase(const LogTargetBase&) = delete;
  LogTargetBase& operator=(const LogTargetBase&) = delete;

  // Opens the log file into `stream`, to append to it. False when that fails.
  virtual bool SetStreamHandle(std::fstream& stream) = 0;

  // The creator of a target deletes it, after it was unregistered.
  virtual ~LogTargetBase();

  // The logging core calls these when it is about to file the target, which may refuse by false,
  // and when the last registration was withdrawn.
  virtual bool onRegisterTarget() = 0;
  virtual bool onUnregisterTarget() = 0;

  // Writes one message unless its level is below the target's. `format` is that of printf, and
  // `args` is used up; with `args` null, `format` is the text itself. (A list that can be null is a
  // matter of the calling convention: it is an array on x86-64.) Null columns count as empty.
  // `timestampMs` is in milliseconds since the epoch, 0 for now. `useLock` is false for a caller
  // that holds the target's lock already.
  virtual bool writeLog(Log_Level level, const char* sessionId, const char* domain,
                        const char* subDomain, const char* component, const char* detail1,
                        const char* detail2, const char* format, va_list args,
                        unsigned long long timestampMs, bool useLock) TARN_PRINTF_METHOD(9, 0) = 0;

  // Writes the block of lines that describes the machine, each as a message with these columns:
  // without `header` the target's own one, else `header` alone or merged into the target's own one,
  // as it says itself.
  virtual bool logHeader(Log_Level level, const char* sessionId, const char* domain,
                         const char* subDomain, const char* component, stLogHeader* header,
                         bool useLock) = 0;

  // The key under which the core files the target. Null changes nothing and returns false.
  bool setIdentifier(const char* id);
  // Belongs to the target.
  const char* getIdentifier() const { return identifier_.c_str(); }

  // Sets the level, which a marker file in the user's log folder can make more verbose: there the
  // log's name with the extension "trace" or "debug" stands for that level, and where neither
  // exists "pvx.trace" and "pvx.debug". The log's name is the one of this moment. Creates no
  // folder.
  void setLogLevel(Log_Level level);
  Log_Level getLogLevel() const { return level_; }

  // Says where to write: a file of that bare name in `folder`, which exists. A null or empty name
  // keeps the name it has. A null or empty folder means "Cirrane/CRN" in the user's log folder; it
  // is created if missing and then given to the user at the console, open to everyone. A registered
  // target goes on in the new file. False, and the target is not valid until the next call, when
  // the name is not a bare one or the file cannot be opened.
  bool setLogFile(const char* fileName, const char* folder);

  void incrementRefCount();
  void decrementRefCount();
  // Reads without the lock.
  int getRefCount() const PLATFORM_NO_THREAD_SAFETY_ANALYSIS { return ref_count_; }

 protected:
  std::string identifier_;
  std::string separator_{kDefaultSeparator};  // between the columns of a line
  std::string file_name_ = "TARN.log";
  std::string file_path_;  // empty until it is known
  Log_Level level_ = kDefaultLogLevel;
  std::fstream stream_;
  bool valid_ = true;  // false after a setLogFile() that failed
  bool registered_ = false;

 private:
  bool FindLogFolder(const char* folder, std::string& path) const;

  platform::Mutex ref_mutex_;
  int ref_count_ PLATFORM_GUARDED_BY(ref_mutex_) = 0;
};

}  // namespace tarn
