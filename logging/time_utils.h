#pragma once

#include <sys/time.h>
#include <string>

// The clock and the local calendar. Any thread may call the functions.
namespace tarn {

// Sets `tv` to the seconds and microseconds since the epoch. Returns the result of gettimeofday(),
// 0 for success.
int getCurrentTime(timeval& tv);

// Sets `out` to the local date `days` times 86400 seconds from now, as "2026-11-15"; negative
// `days` are in the past. Returns false and does not change `out` when the calendar cannot
// represent it.
bool getOffSetDate(std::string& out, int days);

// Sets `out` to the local date and time, as "2026-11-15 21-05-07", which can be part of a file
// name. Returns false and does not change `out` when the calendar cannot represent the time.
bool getDatetime(std::string& out);

}  // namespace tarn
