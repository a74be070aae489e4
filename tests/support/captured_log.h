#pragma once

#include <ostream>
#include <string>
#include <vector>

// One message that the log function of the utility library received.
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

// Captures the messages of the utility library in place of a log during the life of the object.
// Only one object may exist at a time. Not thread-safe.
class CapturedLog {
 public:
  CapturedLog();
  CapturedLog(const CapturedLog&) = delete;
  CapturedLog& operator=(const CapturedLog&) = delete;
  ~CapturedLog();

  const std::vector<CapturedMessage>& messages() const;
  // Returns the level and the text of each message: "30 Parsing ...".
  std::vector<std::string> Lines() const;
};
