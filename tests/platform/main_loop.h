#pragma once

#include <memory>

// What the main thread does while a program waits for notifications.
class MainLoop {
 public:
  MainLoop();
  MainLoop(const MainLoop&) = delete;
  MainLoop& operator=(const MainLoop&) = delete;
  ~MainLoop();

  // Returns after Quit(), which may have been called before.
  void Run();
  // On the thread that observers call their functions on, once.
  void Quit();

 private:
  class Implementation;
  const std::unique_ptr<Implementation> implementation_;
};
