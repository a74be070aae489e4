#include "examples/suite_host/line_splitter.h"

#include <utility>

void LineSplitter::Add(std::string_view bytes, const Take& take) {
  for (auto end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
    Append(bytes.substr(0, end));
    Complete(take);
    bytes.remove_prefix(end + 1);
  }
  if (!bytes.empty()) Append(bytes);
}

void LineSplitter::End(const Take& take) {
  if (started_) Complete(take);
}

void LineSplitter::Append(std::string_view bytes) {
  started_ = true;
  if (!line_.too_long && bytes.size() <= max_length_ - line_.text.size()) {
    line_.text += bytes;
  } else {
    line_.too_long = true;
    line_.text = std::string();
  }
}

void LineSplitter::Complete(const Take& take) {
  const std::size_t number = ++line_.number;
  take(std::exchange(line_, InputLine()));
  line_.number = number;
  started_ = false;
}
