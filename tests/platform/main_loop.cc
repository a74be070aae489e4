#include "tests/platform/main_loop.h"

#include <future>

// Observers have their own thread, so the main thread only waits.
class MainLoop::Implementation {
 public:
  std::promise<void> quit;
};

MainLoop::MainLoop() : implementation_(std::make_unique<Implementation>()) {}

MainLoop::~MainLoop() = default;

void MainLoop::Run() { implementation_->quit.get_future().wait(); }

void MainLoop::Quit() { implementation_->quit.set_value(); }
