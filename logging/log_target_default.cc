#include "logging/log_target_default.h"

#include <sys/stat.h>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "logging/log_utils.h"
#include "logging/secret_masking.h"
#include "platform/thread_id.h"

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
  int major = 0;
  int minor = 0;
  int bugfix = 0;
  if (utilGetCurrentOSVersion(major, minor, bugfix)) {
    thread_id_enabled_ = platform::HasThreadId(major, minor);
  }
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
  last_segment_check_ = last_log_time_ = static_cast<unsigned long long>(now.tv_sec);
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
  Write({nullptr, level, sessionId, domain, subDomain, component, detail1, detail2, nullptr,
         message ? message : ""},
        timestampMs, useLock);
  return true;
}

void LogTargetDefault::Write(const LogLine& message, unsigned long long timestampMs, bool useLock) {
  std::unique_lock<std::mutex> guard(threads_, std::defer_lock);
  if (useLock) {
    guard.lock();
    if (!lock_ || !lock_->wait()) return;
    PrepareFile();
  }
  if (!writes_header_) {
    if (marks_.attached()) header_pending_ = marks_.headerDue();
    if (header_pending_) WriteDueHeader(message);
  }
  WriteLine(message, timestampMs);
  if (useLock) lock_->release();  // fails when the set vanished: the next wait() makes a new one
}

void LogTargetDefault::WriteLine(const LogLine& message, unsigned long long timestampMs) {
  FormatMessage(message, timestampMs, line_);
  if (!stream_.good()) return;
  marks_.setWriting(true);
  WriteStream(line_.c_str());
  if (stream_.good()) marks_.setWriting(false);  // else it may be torn, and the next writer looks
}

// Brings the file into the state that a line may follow.
void LogTargetDefault::PrepareFile() {
  FinishRotation();
  if (!end_is_known_ || marks_.writing()) EndTornLine();
  if (last_log_time_ - last_segment_check_ >= segment_interval_ && SegmentLogFile(true)) {
    last_segment_check_ = last_log_time_;
  }
}

// Clears the mark after the whole block is written: if this process is killed or cannot write, the
// next process writes the header. A target above INFO drops the lines of the block and clears the
// mark all the same, because the header belongs before the first line of a file and nowhere else.
void LogTargetDefault::WriteDueHeader(const LogLine& message) {
  writes_header_ = true;
  logHeader(INFO, message.sessionId, message.domain, message.subDomain, message.component, nullptr,
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
  output_.assign(line).push_back('\n');
  stream_.write(output_.data(), static_cast<std::streamsize>(output_.size()));
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
  timeval now{};
  if (timestampMs != 0) {
    now.tv_sec = static_cast<time_t>(timestampMs / 1000);
    now.tv_usec = static_cast<suseconds_t>(timestampMs % 1000 * 1000);
  } else {
    getCurrentTime(now);  // its one error is a bad address
  }
  last_log_time_ = static_cast<unsigned long long>(now.tv_sec);
  if (now.tv_sec != text_time_) {
    text_time_ = now.tv_sec;
    second_text_ = SecondText(now.tv_sec);
  }
  const int milliseconds = static_cast<int>(now.tv_usec / 1000);
  // By hand: snprintf() takes as long as all else here together.
  char* end = std::copy(second_text_.begin(), second_text_.end(), buffer);
  *end++ = ':';
  for (const int unit : {100, 10, 1})
    *end++ = static_cast<char>('0' + milliseconds / unit % 10);
  *end = '\0';
  return static_cast<int>(end - buffer);
}

std::string LogTargetDefault::getCurrentThreadID() const {
  return thread_id_enabled_ ? std::to_string(platform::GetThreadId()) : "";
}

void LogTargetDefault::formatLog(unsigned long long timestampMs, Log_Level level,
                                 const char* sessionId, const char* domain, const char* subDomain,
                                 const char* component, const char* detail1, const char* detail2,
                                 const char* message, std::string& line) {
  FormatMessage({nullptr, level, sessionId, domain, subDomain, component, detail1, detail2, nullptr,
                 message ? message : ""},
                timestampMs, line);
}

void LogTargetDefault::FormatMessage(const LogLine& message, unsigned long long timestampMs,
                                     std::string& line) {
  char time[kTimeSize];
  getTimeStr(timestampMs, time);
  const std::string thread = getCurrentThreadID();
  LogLine columns = message;
  columns.time = time;
  columns.threadId = thread.c_str();
  columns.message = MaskSecrets(message.message, masked_tags_, masked_);
  FormatLine(columns, separator_, line);
}

void LogTargetDefault::initializeHeader() { header_ = DescribeSystem(); }

void LogTargetDefault::initializeXMLTagNameList() {
  const std::vector<std::string>& names = SecretElementNames();
  masked_tags_.insert(masked_tags_.end(), names.begin(), names.end());
}

void LogTargetDefault::hideDataOfXMLTag(const char* message, std::string& masked) {
  MaskElements(message ? message : "", masked_tags_, masked);
}

void LogTargetDefault::hideDataOfXMLTagHelper(std::string& text, const int& openPos,
                                              const int& closePos, const int& openLen) {
  MaskBetween(text, static_cast<std::size_t>(openPos), static_cast<std::size_t>(closePos),
              static_cast<std::size_t>(openLen));
}

}  // namespace tarn
