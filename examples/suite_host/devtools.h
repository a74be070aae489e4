#pragma once

#include <string>

// Reserves a TCP port of the loopback interface for Chromium's DevTools, before Chromium starts and
// opens the port.
class DevtoolsPort {
 public:
  DevtoolsPort() = default;
  DevtoolsPort(const DevtoolsPort&) = delete;
  DevtoolsPort& operator=(const DevtoolsPort&) = delete;
  ~DevtoolsPort();

  // Reserves `port`, or any free port for 0. Returns false, with the reason in `error`, when that
  // fails, for example because the port is in use.
  bool Reserve(int port, std::string& error);
  int number() const { return number_; }

  // Prints an event with the address once Chromium has opened the port, or an error if Chromium has
  // not opened it after some seconds. Must be called on the main thread while the message loop
  // runs.
  void AnnounceWhenOpen();

 private:
  void Try(int tries_left);

  int reservation_ = -1;
  int number_ = 0;
};
