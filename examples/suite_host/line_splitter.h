#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

struct InputLine {
  std::size_t number = 0;  // from 1
  std::string text;        // without the newline
  bool too_long = false;   // then `text` is empty
};

// Splits a stream of bytes into lines of bounded length.
class LineSplitter {
 public:
  using Take = std::function<void(InputLine line)>;

  explicit LineSplitter(std::size_t max_length) : max_length_(max_length) {}

  // Calls `take` for each line that `bytes` complete.
  void Add(std::string_view bytes, const Take& take);
  // Calls `take` for the last line if it has no newline. Call it at the end of the stream.
  void End(const Take& take);

 private:
  void Append(std::string_view bytes);
  void Complete(const Take& take);

  const std::size_t max_length_;  // bytes
  InputLine line_;
  bool started_ = false;  // the current line has bytes, possibly dropped ones
};
