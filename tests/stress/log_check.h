#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/stress/numbered_line.h"

// Reads a log file written by numbered writers, and compares every byte of it.
class LogCheck {
 public:
  // `writers[i]` is the writer with the number i.
  LogCheck(std::vector<WriterRecord> writers, long most_text);

  // Whether every line of the file is whole, and every writer's lines are all there, once and in
  // order: as many as were acknowledged. One that was killed may have one more, or a begun one,
  // on a line of its own, after those. Otherwise problem() says what is wrong first.
  bool Read(const std::string& path);

  // The same for the file together with its rotated copies. Each of them but the first begins with
  // the header: once or, where a writer was killed before it was done with it, from its
  // first line on once more.
  bool ReadWithCopies(const std::string& path);

  const std::string& problem() const { return problem_; }
  long lines() const { return lines_; }
  // Begun lines, of killed writers; empty ones, where nothing of it came to the file, apart.
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
  // The last one of the blocks is whole.
  bool IsHeader(const std::vector<std::string>& lines) const;
  // A line with or without its end, which only the file's last one can lack.
  bool Take(const std::string& text, bool has_end);
  bool TakeWhole(const std::string& text, std::size_t writer);
  bool TakeTorn(const std::string& text);
  bool AllThere();
  bool Fail(const std::string& problem, const std::string& text);
  NumberedLine NextLine(std::size_t writer) const;

  std::vector<WriterRecord> writers_;
  std::map<std::string, std::size_t> domains_;
  std::vector<Progress> progress_;
  long most_text_;
  std::vector<std::string> header_;
  bool someone_was_killed_ = false;
  long lines_ = 0;
  long torn_ = 0;
  long empty_ = 0;
  long copies_ = 0;
  std::string problem_;
};
