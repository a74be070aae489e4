#include "logging/log_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/file_descriptor.h"

namespace tarn {
namespace {

// A stream writes data that fits into its buffer with one call. The longest message fits with its
// columns.
constexpr std::size_t kBufferSize = 8192;

// No other program replaces the file this often while it is opened.
constexpr int kAttempts = 10;

bool HasFailed(std::streampos position) { return position == std::streampos(std::streamoff(-1)); }

bool MayBeLog(const std::string& path) {
  struct stat attributes {};
  if (stat(path.c_str(), &attributes) == 0) return S_ISREG(attributes.st_mode);
  return errno == ENOENT;
}

FileIdentity IdentityOf(const struct stat& attributes) {
  return {attributes.st_dev, attributes.st_ino};
}

FileIdentity IdentityAt(const std::string& path) {
  struct stat attributes {};
  return stat(path.c_str(), &attributes) == 0 ? IdentityOf(attributes) : FileIdentity{};
}

// Creates the file unless its name is in use. Sets the mode by descriptor, because the path may
// already lead to another file. Returns false when the file is missing afterwards.
bool CreateIfMissing(const std::string& path) {
  struct stat attributes {};
  if (lstat(path.c_str(), &attributes) == 0 || errno != ENOENT) return true;
  const platform::FileDescriptor file(
      open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  if (!file.is_open()) return errno == EEXIST;
  if (fchmod(file.number(), 0666) != 0) {
    std::fprintf(stderr, "\n Error Set File permissions. errno = %s", std::strerror(errno));
  }
  return true;
}

void Open(const std::string& path, std::fstream& stream, bool& readable) {
  stream.setstate(std::ios::failbit);
  readable = false;
  if (!CreateIfMissing(path) || !MayBeLog(path)) return;
  // A pipe may have replaced the file by now; opening it for both directions never blocks.
  stream.open(path, std::ios::in | std::ios::out | std::ios::app);
  readable = stream.is_open();
  if (!readable && errno == EACCES && MayBeLog(path)) {
    stream.open(path, std::ios::out | std::ios::app);
  }
  if (stream.is_open() && HasFailed(stream.rdbuf()->pubseekoff(0, std::ios::end))) {
    stream.close();
    stream.setstate(std::ios::failbit);
  }
}

}  // namespace

bool OpenLogStream(const std::string& path, std::fstream& stream, bool& readable) {
  if (stream.is_open()) stream.close();
  Open(path, stream, readable);
  return stream.good();
}

LogFile::LogFile(std::fstream& stream) : stream_(stream), buffer_(kBufferSize) {}

LogFile::~LogFile() { Close(); }

// A stream does not report the identity of its file, so the path must lead to the same file before
// and after the stream is opened.
bool LogFile::Open(const std::string& path) {
  path_ = path;
  end_is_known_ = false;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    identity_ = IdentityAt(path_);
    if (stream_.is_open()) stream_.close();
    stream_.rdbuf()->pubsetbuf(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    if (!OpenLogStream(path_, stream_, readable_)) break;
    if (IsAtPath()) return true;
  }
  identity_ = {};
  stream_.close();
  stream_.setstate(std::ios::failbit);
  return false;
}

bool LogFile::IsAtPath() const {
  return !(identity_ == FileIdentity{}) && identity_ == IdentityAt(path_);
}

bool LogFile::EndTornLine(const LogFileLock::Scope& /*lock*/, bool torn) {
  if (end_is_known_ && !torn) return true;
  if (!good()) return false;
  const End end = ReadEnd();
  end_is_known_ = end == End::kWhole || (end == End::kTorn && Write("\n"));
  return end_is_known_;
}

LogFile::End LogFile::ReadEnd() {
  constexpr int kEndOfFile = std::filebuf::traits_type::eof();
  std::filebuf& file = *stream_.rdbuf();
  const std::streampos size = file.pubseekoff(0, std::ios::end);
  if (HasFailed(size)) return End::kUnknown;
  if (size == std::streampos(0)) return End::kWhole;
  if (!readable_) return End::kTorn;
  int last = kEndOfFile;
  try {
    if (!HasFailed(file.pubseekoff(-1, std::ios::end))) last = file.sgetc();
  } catch (const std::ios::failure&) {
    // libstdc++ reports an error of read() by an exception.
  }
  // A stream must be positioned between reading and writing.
  if (HasFailed(file.pubseekoff(0, std::ios::end)) || last == kEndOfFile) return End::kUnknown;
  return last == '\n' ? End::kWhole : End::kTorn;
}

void LogFile::Append(const char* line) {
  if (!line) {
    stream_.setstate(std::ios::badbit);
    return;
  }
  if (!good()) return;
  // The line and its newline are one string: for two strings the stream may write twice, and a
  // process that is killed in between would leave half a line.
  output_.assign(line).push_back('\n');
  Write(output_);
}

bool LogFile::Write(std::string_view text) {
  // Bypasses the stream's own operations, each of which prepares and checks the stream again.
  std::filebuf& file = *stream_.rdbuf();
  const auto size = static_cast<std::streamsize>(text.size());
  if (file.sputn(text.data(), size) == size && file.pubsync() == 0) return true;
  // Closing tries once more to write the rest of the buffer, which must not reach the file later.
  stream_.close();
  stream_.setstate(std::ios::badbit);
  return false;
}

platform::FileDescriptor LogFile::OpenAgain(int flags) const {
  const int file = open(path_.c_str(), flags | O_CLOEXEC | O_NONBLOCK);
  struct stat attributes {};
  if (file != -1 && fstat(file, &attributes) == 0 && IdentityOf(attributes) == identity_) {
    return platform::FileDescriptor(file);
  }
  if (file != -1) close(file);
  return platform::FileDescriptor(-1);
}

bool LogFile::Truncate(const LogFileLock::Scope& /*lock*/) {
  const platform::FileDescriptor file = OpenAgain(O_WRONLY);
  if (!file.is_open() || ftruncate(file.number(), 0) != 0) return false;
  end_is_known_ = true;
  return true;
}

}  // namespace tarn
