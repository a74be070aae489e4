#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "logging/log_record.h"

namespace tarn {

// Formats the lines of one log target: takes the time, removes secrets from the message, and joins
// the columns.
//
// Any thread may format at any time: state kept between lines is thread-local or atomic. Changing
// the names of secret elements is not thread-safe.
class LineWriter {
 public:
  // The size of the buffer for FormatTime(), in bytes.
  static constexpr std::size_t kTimeSize = 256 + sizeof ":123";

  LineWriter();

  // Adds names of elements whose values are masked in the lines (see secret_masking.h). The names
  // must be in lower case.
  void AddSecretElements(const std::vector<std::string>& names);
  const std::vector<std::string>& secret_elements() const { return secret_elements_; }

  // Replaces the content of `line` with the whole line without its newline.
  void Format(const LogRecord& record, std::string_view separator, std::string& line);

  // Writes the local time with milliseconds, as "11/15/26 21:05:07:042", and a terminating zero to
  // `buffer`, which must have at least kTimeSize bytes. Returns the length of the text. A timestamp
  // of 0 stands for the current time. A change of the time zone takes effect when the second
  // changes.
  int FormatTime(unsigned long long timestamp_ms, char* buffer);

  // Returns the kernel's identifier of the calling thread, or an empty string if the system has no
  // such identifier.
  std::string ThreadId() const;

  // Returns the time that Format() or FormatTime() formatted last or that set_last_log_time() set,
  // in seconds since the epoch.
  unsigned long long last_log_time() const {
    return last_log_time_.load(std::memory_order_relaxed);
  }
  void set_last_log_time(unsigned long long second) {
    last_log_time_.store(second, std::memory_order_relaxed);
  }

 private:
  bool thread_id_enabled_ = true;
  std::vector<std::string> secret_elements_;
  std::atomic<unsigned long long> last_log_time_{0};
};

}  // namespace tarn
