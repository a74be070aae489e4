#pragma once

#include <sys/types.h>
#include <string>

// The part of a log line that its writer determines. Every column names the writer, so that a line
// mixed from two lines is detected.
struct NumberedLine {
  int writer = 0;
  long number = 0;    // counted from 1
  long max_text = 0;  // of the free text, in bytes

  std::string domain() const { return "D" + std::to_string(writer); }
  std::string sub_domain() const { return "S" + std::to_string(writer); }
  std::string component() const { return "C" + std::to_string(writer); }
  std::string detail1() const { return "a" + std::to_string(writer); }
  std::string detail2() const { return "b" + std::to_string(writer); }

  // Returns the writer, the number and a text whose length and letters both numbers determine.
  std::string message() const;

  // Return the text between the time and the thread's number, and the text after that number.
  std::string Head(pid_t session) const;
  std::string Tail() const;
};

// The data of a writer for the check of its lines.
struct WriterRecord {
  pid_t session = 0;
  long acknowledged = 0;  // the last number whose call returned
  bool killed = false;
};

// Returns whether `text` is the beginning of the line, as a killed writer may leave it, and nothing
// else.
bool IsBeginOf(const NumberedLine& line, pid_t session, const std::string& text);

// Returns whether `text` is the line. Sets `thread` to the text of the thread column.
bool IsWhole(const NumberedLine& line, pid_t session, const std::string& text, std::string& thread);
