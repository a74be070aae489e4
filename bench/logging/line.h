#pragma once

#include <string>

// The line that each contender appends, always with the same columns and length, including the
// newline:
//
//   11/15/26 21:05:07:042 | [INFO] | PROCESS | HXPL | Bench | Worker |  |  | THREAD | MESSAGE
//
// where the message is `NAME loaded in 123 ms`.
constexpr int kLineLength = 150;
constexpr char kDomain[] = "HXPL";
constexpr char kSubDomain[] = "Bench";
constexpr char kComponent[] = "Worker";

// Returns a name that pads the lines of the calling thread to kLineLength, whatever the length of
// the process and thread identifiers.
std::string PageName();

// Returns a complete line of the calling thread with that name and a fixed time.
std::string ReadyLine(const std::string& name);

// Returns the number in a message, which varies and always has three digits.
inline int LoadTime(long line) { return 100 + static_cast<int>(line % 900); }
