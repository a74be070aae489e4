#include "logging/line_format.h"

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
  line.assign(columns.time ? columns.time : "");
  line.append(separator).append("[").append(LevelName(columns.level)).append("]");
  for (const char* const text :
       {columns.sessionId, columns.domain, columns.subDomain, columns.component, columns.detail1,
        columns.detail2, columns.threadId, columns.message}) {
    line.append(separator);
    if (text) line.append(text);
  }
}

}  // namespace tarn
