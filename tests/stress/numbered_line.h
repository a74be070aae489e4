#pragma once

#include <sys/types.h>
#include <string>

// One line of the log, as far as a writer decides it: every text names the writer, so that a line
// made of two shows.
struct NumberedLine {
  int writer = 0;
  long number = 0;     // counted from 1
  long most_text = 0;  // greatest length of the free text

  std::string domain() const { return "D" + std::to_string(writer); }
  std::string sub_domain() const { return "S" + std::to_string(writer); }
  std::string component() const { return "C" + std::to_string(writer); }
  std::string detail1() const { return "a" + std::to_string(writer); }
  std::string detail2() const { return "b" + std::to_string(writer); }

  // The writer, the number and a text, whose length and letters follow from both.
  std::string message() const;

  // What follows the time and stands before the thread's number; and what follows that number.
  std::string Head(pid_t session) const;
  std::string Tail() const;
};

// What a writer has to say on itself for a check of its lines.
struct WriterRecord {
  pid_t session = 0;
  long acknowledged = 0;  // the last number whose call returned
  bool killed = false;
};

// Whether `text` is as much of a line as a killed writer may have left: nothing after its first
// bytes is missing, and nothing else is in it.
bool IsBeginOf(const NumberedLine& line, pid_t session, const std::string& text);

// Whether `text` is the line. `thread` gets the number in the thread column, as text.
bool IsWhole(const NumberedLine& line, pid_t session, const std::string& text, std::string& thread);
