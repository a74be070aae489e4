#include "tests/support/session_bus.h"

#include <systemd/sd-bus.h>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

#include "support/files.h"
#include "tests/support/addresses.h"

namespace {

constexpr char kPath[] = "/com/velmora/crnc/CRNNotifier";
constexpr char kInterface[] = "com.velmora.crnc.CRNNotifier";

constexpr char kPlaceholder[] = "ADDRESS";

int Check(int result, const char* what) {
  if (result < 0) {
    std::fprintf(stderr, "%s: %s\n", what, std::strerror(-result));
    std::abort();
  }
  return result;
}

}  // namespace

SessionBus::SessionBus()
    : address_(BusAddress(folder_.path() + "/bus")),
      new_address_(BusAddress(folder_.path() + "/new_bus")),
      variable_("DBUS_SESSION_BUS_ADDRESS", address_.c_str()) {
  // The address needs no XML escapes, because it has no character with a meaning in XML.
  std::string configuration = ReadFile(SESSION_BUS_CONFIGURATION);
  configuration.replace(configuration.rfind(kPlaceholder), sizeof kPlaceholder - 1, new_address_);
  WriteFile(folder_.path() + "/bus.conf", configuration);
  Start();
}

SessionBus::~SessionBus() { Stop(); }

void SessionBus::Start() {
  ChildProcess::Options options;
  options.error_file = folder_.path() + "/errors";
  daemon_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"dbus-daemon", "--nofork", "--print-address=1",
                               "--config-file=" + folder_.path() + "/bus.conf"},
      options);
  std::string ready;
  if (!daemon_->ReadLine(ready)) {
    std::fputs("dbus-daemon did not start\n", stderr);
    std::abort();
  }
  observers_ = 0;
  analytics_ = 0;
  monitor_ = Connect(true);
  sender_ = Connect(false);
  std::filesystem::rename(folder_.path() + "/new_bus", folder_.path() + "/bus");
}

void SessionBus::Stop() {
  if (!daemon_) return;
  sd_bus_close_unref(monitor_);
  sd_bus_close_unref(sender_);
  daemon_->Signal(SIGCONT);
  daemon_->Signal(SIGTERM);
  daemon_->Wait();
  daemon_.reset();
  std::filesystem::remove(folder_.path() + "/bus");
}

sd_bus* SessionBus::Connect(bool monitor) const {
  sd_bus* bus = nullptr;
  Check(sd_bus_new(&bus), "sd_bus_new");
  Check(sd_bus_set_address(bus, new_address_.c_str()), "sd_bus_set_address");
  Check(sd_bus_set_bus_client(bus, 1), "sd_bus_set_bus_client");
  Check(sd_bus_set_monitor(bus, monitor ? 1 : 0), "sd_bus_set_monitor");
  Check(sd_bus_start(bus), "connecting to the bus");
  if (monitor) {
    Check(sd_bus_call_method(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                             "org.freedesktop.DBus.Monitoring", "BecomeMonitor", nullptr, nullptr,
                             "asu", 0, 0),
          "BecomeMonitor");
  }
  return bus;
}

void SessionBus::ProcessMessage() {
  sd_bus_message* message = nullptr;
  while (Check(sd_bus_process(monitor_, &message), "watching the bus") == 0) {
    Check(sd_bus_wait(monitor_, UINT64_MAX), "waiting for the bus");
  }
  if (!message) return;
  const char* rule = nullptr;
  if (sd_bus_message_is_method_call(message, "org.freedesktop.DBus", "AddMatch") > 0 &&
      sd_bus_message_read(message, "s", &rule) > 0 && std::strstr(rule, kInterface)) {
    ++observers_;
  }
  if (sd_bus_message_is_signal(message, kInterface, "SendCEFMemoryAnalytics") > 0) {
    ++analytics_;
    analytics_arguments_ = sd_bus_message_get_signature(message, 1);
  }
  sd_bus_message_unref(message);
}

void SessionBus::WaitForObservers(int count) {
  while (observers_ < count)
    ProcessMessage();
}

void SessionBus::WaitForAnalytics(int count) {
  while (analytics_ < count)
    ProcessMessage();
}

void SessionBus::SendRefresh(int count) {
  for (int i = 0; i < count; ++i)
    SendSignal(kPath, kInterface, "Refresh");
}

void SessionBus::SendSignal(const std::string& path, const std::string& interface,
                            const std::string& member, const std::string& argument) {
  const char* const types = argument.empty() ? "" : "s";
  Check(sd_bus_emit_signal(sender_, path.c_str(), interface.c_str(), member.c_str(), types,
                           argument.c_str()),
        "sending a signal");
  Check(sd_bus_call_method(sender_, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                           "org.freedesktop.DBus.Peer", "Ping", nullptr, nullptr, ""),
        "waiting for the bus");
}
