#include "examples/suite_host/devtools.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <cerrno>
#include <cstdint>
#include <system_error>

#include "examples/suite_host/event_printer.h"
#include "examples/suite_host/later.h"

namespace {

// Chromium opens the port on another thread, and CEF has no callback for that.
constexpr int kTryMilliseconds = 20;
constexpr int kTries = 500;

sockaddr_in LoopbackAddress(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

int TcpSocket() { return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0); }

// Does not block: connections of the loopback interface wait for no network.
bool IsOpen(int port) {
  const int connection = TcpSocket();
  if (connection < 0) return false;
  const sockaddr_in address = LoopbackAddress(port);
  const bool open =
      connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(connection);  // nothing was written that could be lost
  return open;
}

// Chromium sets the same option. It allows both sockets to bind the port while only one listens.
bool Bind(int reservation, int port) {
  const int enabled = 1;
  const sockaddr_in address = LoopbackAddress(port);
  return setsockopt(reservation, SOL_SOCKET, SO_REUSEADDR, &enabled, sizeof enabled) == 0 &&
         bind(reservation, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

}  // namespace

DevtoolsPort::~DevtoolsPort() {
  if (reservation_ >= 0) close(reservation_);  // nothing was written that could be lost
}

bool DevtoolsPort::Reserve(int port, std::string& error) {
  reservation_ = TcpSocket();
  sockaddr_in address{};
  socklen_t size = sizeof address;
  if (reservation_ < 0 || !Bind(reservation_, port) ||
      getsockname(reservation_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    error = "cannot use port " + std::to_string(port) +
            " for DevTools: " + std::system_category().message(errno);
    return false;
  }
  number_ = ntohs(address.sin_port);
  return true;
}

void DevtoolsPort::AnnounceWhenOpen() { Try(kTries); }

void DevtoolsPort::Try(int tries_left) {
  if (IsOpen(number_)) {
    PrintDevtools("http://127.0.0.1:" + std::to_string(number_));
  } else if (tries_left == 0) {
    PrintError("Chromium does not open port " + std::to_string(number_) + " for DevTools");
  } else {
    RunLater(kTryMilliseconds, [this, tries_left] { Try(tries_left - 1); });
  }
}
