#pragma once

#include <string>

// A renderer as the launcher announced it.
struct RendererStart {
  int pid = 0;
  long long nanoseconds = 0;  // of the monotonic clock
};

// Chooses the helper of the next renderer. Chromium starts bench_launcher for every child process,
// and the launcher executes the helper that a link names. Any failure ends the program, because
// nothing can be measured then.
class HelperLink {
 public:
  // Uses the folder that the environment variable BENCH_START_FOLDER names.
  HelperLink();

  // No renderer may be on its way between its creation and TakeStart().
  void PointTo(const std::string& helper) const;

  // Returns the renderer that has started since the last call.
  RendererStart TakeStart() const;

 private:
  const std::string folder_;
};
