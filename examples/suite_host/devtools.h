#pragma once

#include <string>

// A TCP port of the loopback interface for Chromium's DevTools. The port is reserved before
// Chromium starts and opens it.
class DevtoolsPort {
 public:
  DevtoolsPort() = default;
  DevtoolsPort(const DevtoolsPort&) = delete;
  DevtoolsPort& operator=(const DevtoolsPort&) = delete;
  ~DevtoolsPort();

  // Reserves `port`, or any free port for 0. Returns false, with the reason in `error`, when the
  // port is in use.
  bool Reserve(int port, std::string& error);
  int number() const { return number_; }

  // Prints the address as an event when Chromium has opened the port, or an error when it has not
  // after some seconds. Main thread, while the message loop runs.
  void AnnounceWhenOpen();

 private:
  void Try(int tries_left);

  int reservation_ = -1;
  int number_ = 0;
};
