#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/stress/numbered_line.h"

// Checks every byte of a log file written by numbered writers.
class LogCheck {
 public:
  // `writers[i]` is the writer with the number i.
  LogCheck(std::vector<WriterRecord> writers, long max_text);

  // Returns whether every line of the file is whole and the acknowledged lines of every writer are
  // all there, once and in order. A killed writer may have one more whole line, or a partial line
  // on a line of its own, after those. After false, problem() describes the first fault.
  bool Read(const std::string& path);

  // Does the same for the file together with its rotated copies. Each of these files but the first
  // begins with the header. If a writer was killed while it wrote the header, the header may begin
  // again from its first line.
  bool ReadWithCopies(const std::string& path);

  const std::string& problem() const { return problem_; }
  long lines() const { return lines_; }
  // The number of partial lines of killed writers. Empty lines, of which no byte reached the file,
  // are counted separately.
  long torn() const { return torn_; }
  long empty() const { return empty_; }
  long copies() const { return copies_; }

 private:
  struct Progress {
    long lines = 0;
    bool torn = false;
    std::string thread;
  };

  bool ReadFile(const std::string& path, bool has_header);
  bool IsHeaderLine(const std::string& text) const;
  // Returns whether the lines are headers, of which the last one is whole.
  bool IsHeader(const std::vector<std::string>& lines) const;
  // Takes a line. Only the last line of the file may lack its end.
  bool Take(const std::string& text, bool has_end);
  bool TakeWhole(const std::string& text, std::size_t writer);
  bool TakeTorn(const std::string& text);
  bool AllThere();
  bool Fail(const std::string& problem, const std::string& text);
  NumberedLine NextLine(std::size_t writer) const;

  std::vector<WriterRecord> writers_;
  std::map<std::string, std::size_t> domains_;
  std::vector<Progress> progress_;
  long max_text_;
  std::vector<std::string> header_;
  bool someone_was_killed_ = false;
  long lines_ = 0;
  long torn_ = 0;
  long empty_ = 0;
  long copies_ = 0;
  std::string problem_;
};
