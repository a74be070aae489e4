#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "examples/suite_host/line_splitter.h"

constexpr std::size_t kMaximumInputLine = std::size_t{16} * 1024 * 1024;  // bytes

// Reads standard input on a thread of its own and hands it to the browser process's main thread
// line by line. A line is read ahead at most, so that fast input does not fill memory.
class InputReader {
 public:
  // Both are called on the main thread, until Stop().
  struct Callbacks {
    std::function<void(const InputLine& line)> line;
    std::function<void(const std::string& error)> failed;  // nothing more is read
  };

  explicit InputReader(Callbacks callbacks);
  InputReader(const InputReader&) = delete;
  InputReader& operator=(const InputReader&) = delete;
  ~InputReader();

  // Main thread, while the message loop runs.
  void Start();
  // Main thread. Waits for the thread's end, also when it waits for input.
  void Stop();

 private:
  class Gate;

  void Read();
  // Returns false when the thread must end.
  bool WaitForInput();
  // Reports the error in `errno`.
  void Fail(const char* operation);

  const Callbacks callbacks_;
  const std::shared_ptr<Gate> gate_;
  int stop_event_ = -1;
  std::thread thread_;
};
