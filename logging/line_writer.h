#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "logging/log_record.h"

namespace tarn {

// Makes the lines of one log target: takes the time, removes secrets from the message, and puts the
// columns together.
//
// Any thread may format at any time: what is kept from line to line belongs to the thread. Changing
// the names of secret elements is not thread-safe.
class LineWriter {
 public:
  // The largest size that FormatTime() needs, in bytes.
  static constexpr std::size_t kTimeSize = 256 + sizeof ":123";

  LineWriter();

  // Adds elements whose values the lines do not show (see secret_masking.h).
  void AddSecretElements(const std::vector<std::string>& names);
  const std::vector<std::string>& secret_elements() const { return secret_elements_; }

  // Replaces `line` by the whole line without its newline.
  void Format(const LogRecord& record, std::string_view separator, std::string& line);

  // Writes the local time to the millisecond, as "11/15/26 21:05:07:042", and a zero byte to
  // `buffer`, which has at least kTimeSize bytes. Returns the length of the text. A timestamp of 0
  // reads the clock. A change of the time zone takes effect with the next other second.
  int FormatTime(unsigned long long timestamp_ms, char* buffer);

  // Returns the kernel's number of the calling thread; empty where the system has none.
  std::string ThreadId() const;

  // The second of the time that was formatted last, since the epoch.
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
