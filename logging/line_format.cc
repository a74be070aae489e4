#include "logging/line_format.h"

#include <algorithm>
#include <ctime>

namespace tarn {

const char* LevelName(Log_Level level) {
  switch (level) {
    case TRACE:
      return "TRACE";
    case DEBUG:
      return "DEBUG";
    case INFO:
      return "INFO";
    case WARN:
      return "WARN";
    case ERROR:
      return "ERROR";
    case FATAL:
      return "FATAL";
    case NONE:
      return "NONE";
  }
  return "ALL";
}

std::string SecondText(long long secondsSinceEpoch) {
  const auto time = static_cast<std::time_t>(secondsSinceEpoch);
  std::tm local{};
  char text[256];
  if (!localtime_r(&time, &local)) return "";
  return std::string(text, std::strftime(text, sizeof text, "%x %X", &local));
}

void FormatLine(const LogRecord& record, std::string_view time, std::string_view thread,
                std::string_view separator, std::string& line) {
  const auto view = [](const char* text) { return std::string_view(text ? text : ""); };
  const std::string_view columns[] = {
      view(record.session_id),
      view(record.domain),
      view(record.sub_domain),
      view(record.component),
      view(record.detail1),
      view(record.detail2),
      thread,
      record.message,
  };
  const std::string_view level = LevelName(record.level);
  std::size_t length = time.size() + separator.size() + level.size() + 2;
  for (const std::string_view column : columns)
    length += separator.size() + column.size();

  // One resize() with plain copies is several times faster than two dozen calls of append().
  line.resize(length);
  char* end = line.data();
  const auto put = [&end](std::string_view text) {
    end = std::copy(text.begin(), text.end(), end);
  };
  // With a length known at compile time, the copy is two instructions instead of a call.
  const auto put_separator = [&end, put, separator] {
    constexpr std::size_t kUsualLength = kDefaultSeparator.size();
    if (separator.size() == kUsualLength) {
      end = std::copy_n(separator.data(), kUsualLength, end);
    } else {
      put(separator);
    }
  };
  put(time);
  put_separator();
  *end++ = '[';
  put(level);
  *end++ = ']';
  for (const std::string_view column : columns) {
    put_separator();
    put(column);
  }
}

}  // namespace tarn
