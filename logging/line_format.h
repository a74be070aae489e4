#pragma once

#include <string>
#include <string_view>

#include "logging/log_record.h"

// Functions that format a line. Any thread may call them.
namespace tarn {

// The separator between the columns of a line, unless a target chooses another one.
inline constexpr std::string_view kDefaultSeparator = " | ";

// "TRACE" to "NONE"; "ALL" for a number that is not a level.
const char* LevelName(Log_Level level);

// Returns the local date and time of a second in the locale's format, as "11/15/26 21:05:07".
// Returns an empty string when the calendar cannot represent the second.
std::string SecondText(long long secondsSinceEpoch);

// Replaces the content of `line`, which keeps its memory. The columns are the time, the level in
// brackets, the strings of `record` from the session to the second detail, `thread`, and the
// message. `separator` stands between all columns, including empty ones. Adds no newline.
void FormatLine(const LogRecord& record, std::string_view time, std::string_view thread,
                std::string_view separator, std::string& line);

}  // namespace tarn
