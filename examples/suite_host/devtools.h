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

  // Reserves `port`, or any free port for 0, until the object is destroyed. Chromium can open the
  // port in the meantime. Call it only once. Returns false, with the reason in `error`, when the
  // port cannot be reserved, for example because it is in use.
  bool Reserve(int port, std::string& error);
  // Returns the reserved port, or 0 before a successful Reserve().
  int number() const { return number_; }

  // Prints an event with the address once Chromium has opened the port, or an error if Chromium has
  // not opened it after some seconds. Must be called on the main thread, after Reserve() and while
  // the message loop runs. The object must exist until the message loop has ended.
  void AnnounceWhenOpen();

 private:
  void Try(int tries_left);

  int reservation_ = -1;
  int number_ = 0;
};
