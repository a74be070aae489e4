#pragma once

#include <string>
#include <string_view>

#include "logging/log_level.h"

namespace tarn {

// What one line is made of, in the order of its columns. A null pointer counts as empty text.
struct LogLine {
  const char* time;
  Log_Level level;
  const char* sessionId;
  const char* domain;
  const char* subDomain;
  const char* component;
  const char* detail1;
  const char* detail2;
  const char* threadId;
  std::string_view message;
};

// "TRACE" to "NONE"; "ALL" for a number that is no level.
const char* LevelName(Log_Level level);

// The local date and time of a second in the form of the locale, as "11/15/26 21:05:07"; empty when
// the second has none.
std::string SecondText(long long secondsSinceEpoch);

// Puts the columns into `line`, which keeps its memory: the time, the level in brackets, and the
// others, with `separator` between each two, the empty ones too. Without a newline. Nothing but the
// arguments decides.
void FormatLine(const LogLine& columns, const std::string& separator, std::string& line);

}  // namespace tarn
