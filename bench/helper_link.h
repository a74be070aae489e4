#pragma once

#include <string>

// A renderer's start, as recorded by the launcher.
struct RendererStart {
  int pid = 0;
  long long nanoseconds = 0;  // monotonic clock
};

// Chooses the helper of the next renderer. Chromium starts bench_launcher for each child process,
// and the launcher executes the helper that a link points to. Any failure ends the program.
class HelperLink {
 public:
  // Uses the folder that the environment variable BENCH_START_FOLDER names.
  HelperLink();

  // Sets the helper of later renderers. The caller must have called TakeStart() for each earlier
  // renderer.
  void PointTo(const std::string& helper) const;

  // Returns the start of the renderer that has started since the previous call. Does not wait: it
  // is a failure if no renderer has started.
  RendererStart TakeStart() const;

 private:
  const std::string folder_;
};
