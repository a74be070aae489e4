#include "logging/log_target_default.h"

#include <sys/stat.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "logging/line_format.h"
#include "logging/log_utils.h"
#include "logging/secret_masking.h"

namespace tarn {
namespace {

// All programs that share a log file use this number for the key of its lock.
constexpr int kLockProjectId = 11;

// In seconds.
constexpr unsigned long long kSegmentCheckInterval = 900;

constexpr std::size_t kMessageSize = 4096;
// A stream writes what fits into its buffer at once, here the longest message with its columns.
constexpr std::size_t kStreamBufferSize = 2 * kMessageSize;

}  // namespace

LogTargetDefault::LogTargetDefault(const char* identifier)
    : segment_interval_(kSegmentCheckInterval), stream_buffer_(kStreamBufferSize) {
  setIdentifier(identifier);
  initializeXMLTagNameList();
  initializeHeader();
}

LogTargetDefault::~LogTargetDefault() {
  stream_.close();  // while its buffer is there
}

bool LogTargetDefault::SetStreamHandle(std::fstream& stream) {
  struct stat attributes {};
  const bool existed = lstat(file_path_.c_str(), &attributes) == 0;
  if (stream.is_open()) stream.close();
  stream.rdbuf()->pubsetbuf(stream_buffer_.data(),
                            static_cast<std::streamsize>(stream_buffer_.size()));
  stream.open(file_path_, std::ios::out | std::ios::app);
  if (!existed && stream.good() && chmod(file_path_.c_str(), 0666) != 0) {
    std::fprintf(stderr, "\n Error Set File permissions. errno = %s", std::strerror(errno));
  }
  if (stat(file_path_.c_str(), &attributes) == 0) {
    file_inode_ = attributes.st_ino;
    file_device_ = attributes.st_dev;
  }
  return stream.good();
}

bool LogTargetDefault::SetStreamPath(const char* fileName) {
  std::string path;
  if (!getTempPath(path) || !appendPath(path, fileName)) return false;
  file_path_ = path;
  return true;
}

bool LogTargetDefault::onRegisterTarget() {
  if (!valid_) return false;
  if (file_path_.empty() && !SetStreamPath(file_name_.c_str())) return false;
  if (!SetStreamHandle(stream_)) return false;
  if (!lock_) {
    lock_ = std::make_unique<BinaryLock>();
    lock_->create(file_path_, kLockProjectId);
  }
  timeval now{};
  getCurrentTime(now);  // its one error is a bad address
  last_segment_check_ = static_cast<unsigned long long>(now.tv_sec);
  line_writer_.set_last_log_time(last_segment_check_);
  end_is_known_ = false;
  if (lock_->wait()) {
    marks_.attach(file_path_, kLockProjectId);
    FinishRotation();
    SegmentLogFile(true);
    lock_->release();
  }
  registered_ = true;
  return true;
}

bool LogTargetDefault::onUnregisterTarget() {
  stream_.close();
  marks_.detach();
  lock_.reset();
  registered_ = false;
  return true;
}

bool LogTargetDefault::writeLog(Log_Level level, const char* sessionId, const char* domain,
                                const char* subDomain, const char* component, const char* detail1,
                                const char* detail2, const char* format, va_list args,
                                unsigned long long timestampMs, bool useLock) {
  if (level_ > level) return true;
  char text[kMessageSize];
  const char* message = format;
  if (args) {
    // A conversion that fails ends the message: the text before it is logged. Whatever a formatter
    // leaves after a failure, the text is terminated, because it never uses the last byte.
    text[0] = text[sizeof text - 1] = '\0';
    getLogMessage(text, sizeof text, format, args);
    message = text;
  }
  Write({timestampMs, level, sessionId, domain, subDomain, component, detail1, detail2,
         message ? message : ""},
        useLock);
  return true;
}

void LogTargetDefault::Write(const LogRecord& record, bool useLock) {
  std::unique_lock<std::mutex> guard(threads_, std::defer_lock);
  if (useLock) {
    guard.lock();
    if (!lock_ || !lock_->wait()) return;
    PrepareFile();
  }
  if (!writes_header_) {
    if (marks_.attached()) header_pending_ = marks_.headerDue();
    if (header_pending_) WriteDueHeader(record);
  }
  WriteLine(record);
  if (useLock) lock_->release();  // fails when the set vanished: the next wait() makes a new one
}

void LogTargetDefault::WriteLine(const LogRecord& record) {
  // Keeps its memory from line to line. Taken out of the thread's variable, because an override of
  // WriteStream() may log to another target.
  thread_local std::string spare;
  std::string line = std::move(spare);
  line_writer_.Format(record, separator_, line);
  if (stream_.good()) {
    marks_.setWriting(true);
    WriteStream(line.c_str());
    if (stream_.good()) marks_.setWriting(false);  // else it may be torn, and the next writer looks
  }
  spare = std::move(line);
}

// Brings the file into the state that a line may follow.
void LogTargetDefault::PrepareFile() {
  FinishRotation();
  if (!end_is_known_ || marks_.writing()) EndTornLine();
  const unsigned long long last = line_writer_.last_log_time();
  if (last - last_segment_check_ >= segment_interval_ && SegmentLogFile(true)) {
    last_segment_check_ = last;
  }
}

// Clears the mark after the whole block is written: if this process is killed or cannot write, the
// next process writes the header. A target above INFO drops the lines of the block and clears the
// mark all the same, because the header belongs before the first line of a file and nowhere else.
void LogTargetDefault::WriteDueHeader(const LogRecord& record) {
  writes_header_ = true;
  logHeader(INFO, record.session_id, record.domain, record.sub_domain, record.component, nullptr,
            false);
  writes_header_ = false;
  if (stream_.good()) marks_.setHeaderDue(false);
}

void LogTargetDefault::WriteStream(const char* line) {
  if (!line) {
    stream_.setstate(std::ios::badbit);
    return;
  }
  // With its newline in one piece: a stream that is given two may write twice, and a process that
  // is killed in between leaves half a line.
  thread_local std::string output;
  output.assign(line).push_back('\n');
  stream_.write(output.data(), static_cast<std::streamsize>(output.size()));
  // Closing tries once more to write what is left in the stream's buffer. It must not follow later.
  if (!stream_.flush()) stream_.close();
}

void LogTargetDefault::EndTornLine() {
  end_is_known_ = true;
  std::ifstream file(file_path_, std::ios::binary | std::ios::ate);
  if (!file || file.tellg() <= 0) return;
  file.seekg(-1, std::ios::end);
  if (file.get() == '\n') return;
  stream_.put('\n');
  stream_.flush();
}

bool LogTargetDefault::logHeader(Log_Level level, const char* sessionId, const char* domain,
                                 const char* subDomain, const char* component, stLogHeader* header,
                                 bool useLock) {
  std::vector<std::string> lines;
  {
    std::unique_lock<std::mutex> guard(threads_, std::defer_lock);
    if (useLock) guard.lock();
    header_pending_ = false;
    const bool locked = !useLock || (lock_ && lock_->wait());
    if (locked && !writes_header_) marks_.setHeaderDue(false);
    if (useLock && locked) lock_->release();
    if (header && header->merge) MergeHeader(*header, header_);
    lines = HeaderLines(header && !header->merge ? *header : header_);
  }
// Without arguments the format is the text itself.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  for (const std::string& line : lines) {
    writeLog(level, sessionId, domain, subDomain, component, "", "", line.c_str(), nullptr, 0,
             useLock);
  }
#pragma GCC diagnostic pop
  return true;
}

bool LogTargetDefault::cleanFile() {
  if (stream_.is_open()) stream_.close();
  std::ofstream emptied(file_path_, std::ios::trunc);
  return emptied.is_open();
}

std::string LogTargetDefault::getLogLevelString(Log_Level level) const { return LevelName(level); }

int LogTargetDefault::getTimeStr(unsigned long long timestampMs, char* buffer) {
  return line_writer_.FormatTime(timestampMs, buffer);
}

std::string LogTargetDefault::getCurrentThreadID() const { return line_writer_.ThreadId(); }

void LogTargetDefault::formatLog(unsigned long long timestampMs, Log_Level level,
                                 const char* sessionId, const char* domain, const char* subDomain,
                                 const char* component, const char* detail1, const char* detail2,
                                 const char* message, std::string& line) {
  line_writer_.Format({timestampMs, level, sessionId, domain, subDomain, component, detail1,
                       detail2, message ? message : ""},
                      separator_, line);
}

void LogTargetDefault::initializeHeader() { header_ = DescribeSystem(); }

void LogTargetDefault::initializeXMLTagNameList() {
  line_writer_.AddSecretElements(SecretElementNames());
}

void LogTargetDefault::hideDataOfXMLTag(const char* message, std::string& masked) {
  MaskElements(message ? message : "", line_writer_.secret_elements(), masked);
}

void LogTargetDefault::hideDataOfXMLTagHelper(std::string& text, const int& openPos,
                                              const int& closePos, const int& openLen) {
  MaskBetween(text, static_cast<std::size_t>(openPos), static_cast<std::size_t>(closePos),
              static_cast<std::size_t>(openLen));
}

}  // namespace tarn
