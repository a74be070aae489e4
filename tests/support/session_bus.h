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

// A real D-Bus session bus in a folder of its own, which offers no services, and an onlooker who
// sees all that goes over it. Its address is that of this process for as long as the object lives.
// Every wait here ends with the test's time limit at the latest.
class SessionBus {
 public:
  SessionBus();
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;
  ~SessionBus();

  const std::string& address() const { return address_; }

  // Ends the bus, and starts another one at the same address, where the counts begin at 0.
  void Stop();
  void Start();
  // The bus stops working, without an end of its connections, and goes on.
  void Suspend() const { daemon_->Signal(SIGSTOP); }
  void Resume() const { daemon_->Signal(SIGCONT); }

  // Until so many processes in all have asked for the suite's refresh signal.
  void WaitForObservers(int count);
  // Until the bus has passed on so many memory analytics signals in all.
  void WaitForAnalytics(int count);

  // Since the start, as far as the waits above have looked.
  int observers() const { return observers_; }
  int analytics() const { return analytics_; }
  // The types of the arguments of the last memory analytics signal, as D-Bus writes them.
  const std::string& analytics_arguments() const { return analytics_arguments_; }

  // Sends signals, and returns when the bus has passed them on.
  void SendRefresh(int count = 1);
  void SendSignal(const std::string& path, const std::string& interface, const std::string& member,
                  const std::string& argument = "");

 private:
  void Look();
  sd_bus* Connect(bool monitor) const;

  const TemporaryFolder folder_;
  const std::string address_;
  const std::string new_address_;  // until the onlooker is there, so that nobody comes before
  const ScopedVariable variable_;
  std::unique_ptr<ChildProcess> daemon_;
  sd_bus* onlooker_ = nullptr;
  sd_bus* sender_ = nullptr;
  int observers_ = 0;
  int analytics_ = 0;
  std::string analytics_arguments_;
};

// Sends refreshes one behind the other, on a thread of its own, for as long as it lives. Nobody
// else uses the bus meanwhile.
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
