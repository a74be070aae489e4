#include "tests/platform/main_loop.h"

#import <Foundation/Foundation.h>

// The main thread's run loop calls the observers.
class MainLoop::Implementation {
 public:
  bool quit = false;
};

MainLoop::MainLoop() : implementation_(std::make_unique<Implementation>()) {}

MainLoop::~MainLoop() = default;

void MainLoop::Run() {
  while (!implementation_->quit) {
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    [[NSRunLoop mainRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate distantFuture]];
    [pool release];
  }
}

void MainLoop::Quit() { implementation_->quit = true; }
