#pragma once

#include <memory>

// Runs on the main thread while a program waits for notifications.
class MainLoop {
 public:
  MainLoop();
  MainLoop(const MainLoop&) = delete;
  MainLoop& operator=(const MainLoop&) = delete;
  ~MainLoop();

  // Blocks until Quit() is called. Returns at once if Quit() was called before.
  void Run();
  // Must be called once, on the thread on which observers call their functions.
  void Quit();

 private:
  class Implementation;
  const std::unique_ptr<Implementation> implementation_;
};
