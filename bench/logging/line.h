#pragma once

#include <string>

// The line that everybody appends. It has the same columns for all, and the same length, its
// newline included:
//
//   11/15/26 21:05:07:042 | [INFO] | PROCESS | HXPL | Bench | Worker |  |  | THREAD | MESSAGE
//
// where the message is `NAME loaded in 123 ms`.
constexpr int kLineLength = 150;
constexpr char kDomain[] = "HXPL";
constexpr char kSubDomain[] = "Bench";
constexpr char kComponent[] = "Worker";

// What gives the lines of the calling thread their length: its identifiers are longer or shorter.
std::string PageName();

// A whole line of the calling thread with that name, and a time long past.
std::string ReadyLine(const std::string& name);

// The number in a message: always of three digits, but not always the same ones.
inline int LoadTime(long line) { return 100 + static_cast<int>(line % 900); }
