#include "logging/line_writer.h"

#include <sys/time.h>
#include <algorithm>

#include "logging/line_format.h"
#include "logging/os_utils.h"
#include "logging/secret_masking.h"
#include "logging/time_utils.h"
#include "platform/thread_id.h"

namespace tarn {
namespace {

constexpr std::size_t kSecondTextSize = 256;

// The text of the second that a thread formatted last. Has no destructor, because glibc ends a
// process that has no memory to register the destructor.
struct CachedSecond {
  long long second;
  std::size_t length;
  char text[kSecondTextSize];
};

// Caches the text, because a second has many lines and the system's calendar is slow.
std::string_view SecondTextOf(long long second) {
  thread_local CachedSecond cached = {-1, 0, {}};
  if (second != cached.second) {
    const std::string text = SecondText(second);
    cached.length = text.copy(cached.text, sizeof cached.text);
    cached.second = second;
  }
  return {cached.text, cached.length};
}

timeval TimeOf(unsigned long long timestamp_ms) {
  timeval time{};
  if (timestamp_ms != 0) {
    time.tv_sec = static_cast<time_t>(timestamp_ms / 1000);
    time.tv_usec = static_cast<suseconds_t>(timestamp_ms % 1000 * 1000);
  } else {
    getCurrentTime(time);  // fails only for a bad address
  }
  return time;
}

}  // namespace

LineWriter::LineWriter() {
  int major = 0;
  int minor = 0;
  int bugfix = 0;
  if (utilGetCurrentOSVersion(major, minor, bugfix)) {
    thread_id_enabled_ = platform::HasThreadId(major, minor);
  }
}

void LineWriter::AddSecretElements(const std::vector<std::string>& names) {
  secret_elements_.insert(secret_elements_.end(), names.begin(), names.end());
}

void LineWriter::Format(const LogRecord& record, std::string_view separator, std::string& line) {
  std::string scratch;  // allocates nothing unless there is something to mask
  char time[kTimeSize];
  const auto length = static_cast<std::size_t>(FormatTime(record.timestamp_ms, time));
  LogRecord masked = record;
  masked.message = MaskSecrets(record.message, secret_elements_, scratch);
  FormatLine(masked, {time, length}, ThreadId(), separator, line);
}

int LineWriter::FormatTime(unsigned long long timestamp_ms, char* buffer) {
  const timeval time = TimeOf(timestamp_ms);
  set_last_log_time(static_cast<unsigned long long>(time.tv_sec));
  const std::string_view second = SecondTextOf(time.tv_sec);
  const int milliseconds = static_cast<int>(time.tv_usec / 1000);
  // snprintf() would cost as much as the rest of this function.
  char* end = std::copy(second.begin(), second.end(), buffer);
  *end++ = ':';
  for (const int unit : {100, 10, 1})
    *end++ = static_cast<char>('0' + milliseconds / unit % 10);
  *end = '\0';
  return static_cast<int>(end - buffer);
}

std::string LineWriter::ThreadId() const {
  return thread_id_enabled_ ? std::to_string(platform::GetThreadId()) : "";
}

}  // namespace tarn
