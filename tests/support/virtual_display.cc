#include "tests/support/virtual_display.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "tests/support/child_process.h"

VirtualDisplay::VirtualDisplay() {
  // The server writes its number to standard output once it is ready.
  ChildProcess::Options options;
  options.error_file = "/dev/null";
  server_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24",
                               "-nolisten", "tcp", "-noreset"},
      options);
  std::string number;
  if (!server_->ReadLine(number)) {
    std::fputs("Xvfb did not start\n", stderr);
    std::abort();
  }
  name_ = ":" + number;
}

VirtualDisplay::~VirtualDisplay() {
  server_->Signal(SIGTERM);  // at which it removes its socket and its lock file
  server_->Wait();
}
