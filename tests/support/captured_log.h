#pragma once

#include <ostream>
#include <string>
#include <vector>

// One message as the utility library's log function got it.
struct CapturedMessage {
  int level;
  std::string module;
  std::string component;
  std::string ignored;
  std::string detail;
  std::string text;  // formatted

  bool operator==(const CapturedMessage& other) const;
};

std::ostream& operator<<(std::ostream& stream, const CapturedMessage& message);

// While it lives, the messages of the utility library come here instead of to a log. One at a time.
class CapturedLog {
 public:
  CapturedLog();
  CapturedLog(const CapturedLog&) = delete;
  CapturedLog& operator=(const CapturedLog&) = delete;
  ~CapturedLog();

  const std::vector<CapturedMessage>& messages() const;
  // The text of each message with its level in front: "30 Parsing ...".
  std::vector<std::string> Lines() const;
};
