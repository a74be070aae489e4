#pragma once

#include <string_view>

#include "logging/log_level.h"

namespace tarn {

// One message and the other columns of its line, as far as the caller supplies them. The record
// does not own the strings. A null pointer counts as an empty string.
struct LogRecord {
  // In milliseconds since the epoch; 0 stands for the time at which the line is formatted.
  unsigned long long timestamp_ms;
  Log_Level level;
  const char* session_id;
  const char* domain;
  const char* sub_domain;
  const char* component;
  const char* detail1;
  const char* detail2;
  std::string_view message;
};

}  // namespace tarn
