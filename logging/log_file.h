#pragma once

#include <sys/types.h>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "logging/log_file_lock.h"
#include "platform/file_descriptor.h"

namespace tarn {

// Identifies a file independently of its name. {} stands for no file.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;

  bool operator==(const FileIdentity& other) const {
    return device == other.device && inode == other.inode;
  }
};

// Opens a log file for appending. Sets `readable` to whether the stream can also read the file.
// Creates a missing file with mode 0666, regardless of the umask. Closes the stream first. Returns
// false, with a stream that is not good, when the file cannot be opened or is not a regular file or
// a link to one: writing to a pipe could block.
bool OpenLogStream(const std::string& path, std::fstream& stream, bool& readable);

// The open log file: its stream with a buffer that holds a line, its path, its identity, and
// whether it ends with a whole line.
//
// A function with a scope parameter requires that the scope holds the lock (see Scope::held()). The
// other functions are not thread-safe.
class LogFile {
 public:
  // `stream` must outlive this object, which closes it.
  explicit LogFile(std::fstream& stream);
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;
  ~LogFile();

  // Opens the file in place of the one that is open. Returns false when that fails, or when other
  // programs keep replacing the file at the path.
  bool Open(const std::string& path);
  bool Reopen() { return Open(std::string(path_)); }
  void Close() { stream_.close(); }

  // Returns false when nothing can be written: the file is closed, or an operation failed.
  bool good() const { return stream_.is_open() && stream_.good(); }

  // Describe the file of the last Open(), even after Close(). Empty before the first Open(). After
  // a failed Open(), path() is the new path and identity() is {}.
  const std::string& path() const { return path_; }
  const FileIdentity& identity() const { return identity_; }

  // Returns whether path() still leads to the file of identity(): another program may have renamed,
  // removed or replaced it. Returns false when the last Open() failed.
  bool IsAtPath() const;

  // Makes the file end with a newline unless it is empty. Reads the file's end if it has not been
  // read since the file was opened, or if `torn` is set because a writer may have left half a line.
  // In both cases, a file that the user may not read gets a newline. Returns false when reading or
  // writing fails: the next line could become part of a torn line.
  bool EndTornLine(const LogFileLock::Scope& lock, bool torn);

  // Writes the line and its newline with one system call, regardless of their length. Writes
  // nothing unless good(). The stream is bad after a failure or a null pointer. The caller must
  // hold the lock.
  void Append(const char* line);

  // Opens the file once more, with `flags` of open(). Returns a closed descriptor when that fails
  // or when the path leads to another file.
  platform::FileDescriptor OpenAgain(int flags) const;

  // Empties the file for every process that has it open. Returns false and does not change the file
  // when that fails or when the path leads to another file.
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
