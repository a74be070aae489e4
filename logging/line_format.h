#pragma once

#include <string>
#include <string_view>

#include "logging/log_record.h"

// The form of a line, as pure functions.
namespace tarn {

// Stands between the columns of a line unless a target chooses another separator.
inline constexpr std::string_view kDefaultSeparator = " | ";

// "TRACE" to "NONE"; "ALL" for a number that is not a level.
const char* LevelName(Log_Level level);

// Returns the local date and time of a second in the form of the locale, as "11/15/26 21:05:07";
// empty when the calendar has no such second.
std::string SecondText(long long secondsSinceEpoch);

// Replaces `line`, which keeps its memory, by the columns: the time, the level in brackets, those
// of `record`, with the thread before the message. `separator` stands between each two columns, the
// empty ones included. The line has no newline.
void FormatLine(const LogRecord& record, std::string_view time, std::string_view thread,
                std::string_view separator, std::string& line);

}  // namespace tarn
