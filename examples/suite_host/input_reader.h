#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "examples/suite_host/line_splitter.h"

constexpr std::size_t kMaxInputLine = std::size_t{16} * 1024 * 1024;  // bytes

// Reads standard input on its own thread and passes it line by line to the main thread of the
// browser process. Waits until the main thread has handled a line before it passes the next line,
// so that fast input does not fill memory. Passes lines above kMaxInputLine as `too_long`. No
// callback reports the end of the input.
class InputReader {
 public:
  // Both functions are called on the main thread, and not after Stop().
  struct Callbacks {
    std::function<void(const InputLine& line)> line;
    std::function<void(const std::string& error)> failed;  // the reader has stopped
  };

  explicit InputReader(Callbacks callbacks);
  InputReader(const InputReader&) = delete;
  InputReader& operator=(const InputReader&) = delete;
  ~InputReader();  // calls Stop()

  // Must be called on the main thread while the message loop runs, and only once. Calls
  // `failed` at once if the thread cannot be started.
  void Start();
  // Ends the reading thread, even while the thread waits for input, and waits for its end. Must be
  // called on the main thread. Later calls have no effect.
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
