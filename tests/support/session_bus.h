#pragma once

#include <atomic>
#include <csignal>
#include <memory>
#include <string>
#include <thread>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_home.h"

struct sd_bus;

// Runs a real D-Bus session bus without services in a new folder, and a monitor that receives all
// of its messages. The bus is the session bus of this process during the life of the object. Any
// failure aborts the program. Only the time limit of the test bounds the waits.
class SessionBus {
 public:
  SessionBus();
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;
  ~SessionBus();

  const std::string& address() const { return address_; }

  // End the bus, and start another bus at the same address. Start() resets the counts to 0.
  void Stop();
  void Start();
  // Suspend the bus without closing its connections, and resume it.
  void Suspend() const { daemon_->Signal(SIGSTOP); }
  void Resume() const { daemon_->Signal(SIGCONT); }

  // Waits until clients have made `count` subscriptions to the suite's signals since Start().
  void WaitForObservers(int count);
  // Waits until the bus has delivered `count` memory analytics signals since Start().
  void WaitForAnalytics(int count);

  // Return the counts since Start(), up to the last message that a wait has read.
  int observers() const { return observers_; }
  int analytics() const { return analytics_; }
  // Returns the D-Bus signature of the last memory analytics signal.
  const std::string& analytics_arguments() const { return analytics_arguments_; }

  // Send signals, and return when the bus has delivered them. An empty `argument` sends a signal
  // without arguments.
  void SendRefresh(int count = 1);
  void SendSignal(const std::string& path, const std::string& interface, const std::string& member,
                  const std::string& argument = "");

 private:
  void ProcessMessage();
  sd_bus* Connect(bool monitor) const;

  const TemporaryFolder folder_;
  const std::string address_;
  const std::string new_address_;  // until the monitor is connected, so that it misses no client
  const ScopedVariable variable_;
  std::unique_ptr<ChildProcess> daemon_;
  sd_bus* monitor_ = nullptr;
  sd_bus* sender_ = nullptr;
  int observers_ = 0;
  int analytics_ = 0;
  std::string analytics_arguments_;
};

// Sends refresh signals without pause, on its own thread, until it is destroyed. No other code may
// use `bus` in the meantime.
class RefreshFlood {
 public:
  explicit RefreshFlood(SessionBus& bus)
      : thread_([this, &bus] {
          while (!ended_)
            bus.SendRefresh();
        }) {}
  RefreshFlood(const RefreshFlood&) = delete;
  RefreshFlood& operator=(const RefreshFlood&) = delete;
  ~RefreshFlood() {
    ended_ = true;
    thread_.join();
  }

 private:
  std::atomic<bool> ended_{false};
  std::thread thread_;
};
