#pragma once

#include <sys/types.h>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "logging/log_file_lock.h"
#include "platform/file_descriptor.h"

namespace tarn {

// Which file it is, whatever its name. {} is no file.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;

  bool operator==(const FileIdentity& other) const {
    return device == other.device && inode == other.inode;
  }
};

// Opens a log file to append to it; `readable` says whether the stream can read its end as well.
// Creates a missing file with mode 0666, whatever the umask is. Closes the stream first. False, and
// the stream is not good, when the file cannot be opened or is neither a regular file nor a link to
// one: writing to a pipe could block.
bool OpenLogStream(const std::string& path, std::fstream& stream, bool& readable);

// The log file that is open: its stream with a buffer that holds a line, its path, its identity,
// and whether its end is that of a line.
//
// Functions with a scope require it to be held. The others require the caller to keep other threads
// away.
class LogFile {
 public:
  // `stream` must outlive this object, which closes it.
  explicit LogFile(std::fstream& stream);
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;
  ~LogFile();

  // Opens the file in place of the one that is open. False also when the path leads to another file
  // each time it is opened.
  bool Open(const std::string& path);
  bool Reopen() { return Open(std::string(path_)); }
  void Close() { stream_.close(); }

  // False when nothing can be written: the file is closed, or an operation failed.
  bool good() const { return stream_.is_open() && stream_.good(); }

  // Of the file that was opened last, also when it is closed again. Empty before.
  const std::string& path() const { return path_; }
  const FileIdentity& identity() const { return identity_; }

  // Returns whether the path still leads to that file: another program can have renamed, removed or
  // replaced it. False when the last opening failed.
  bool IsAtPath() const;

  // Makes the file end with a newline unless it is empty. Reads the file's end when it has not been
  // read since the file was opened, or when `torn` says that a writer may have left half a line. A
  // file that the user may not read gets a newline in both cases. False when reading or writing
  // fails: another line could become a part of the torn one.
  bool EndTornLine(const LogFileLock::Scope& lock, bool torn);

  // Writes the line and its newline by one system call, whatever their length. The stream is bad
  // after a failure or a null pointer. The caller must hold the lock.
  void Append(const char* line);

  // Opens the file once more, with `flags` of open(). Returns no descriptor when that fails or when
  // the path leads to another file.
  platform::FileDescriptor OpenAgain(int flags) const;

  // Makes the file empty, for all that have it open. False, and the file stays as it is, when that
  // fails or when the path leads to another file.
  bool Truncate(const LogFileLock::Scope& lock);

 private:
  enum class End { kUnknown, kWhole, kTorn };
  End ReadEnd();
  bool Write(std::string_view text);

  std::fstream& stream_;
  std::vector<char> buffer_;
  std::string output_;  // keeps its memory from line to line
  std::string path_;
  FileIdentity identity_;
  bool readable_ = false;
  bool end_is_known_ = false;
};

}  // namespace tarn
