#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/linux/session_bus.h"
#include "platform/linux/suite_signal.h"
#include "platform/mutex.h"
#include "platform/notifications.h"

namespace platform {
namespace {

// Pauses between two attempts to reach the bus, in milliseconds. Each pause is twice the previous
// one.
constexpr int kFirstPause = 250;
constexpr int kMaxPause = 32000;
// The pause after poll() failed, in milliseconds: an immediate retry would most likely fail as
// well.
constexpr int kPauseAfterFailure = 250;
// A connection that lasted longer resets the pause to the first one, in microseconds.
constexpr std::uint64_t kStableAfter = 32000000;

// The error of sd-bus when the environment names no session bus.
constexpr int kNoAddress = ENOMEDIUM;

// Returns the time until `point`, at most kMaxPause, or -1 for no timeout. sd-bus reports a timeout
// as a point in time, and the largest number for no timeout.
int MillisecondsUntil(std::uint64_t point) {
  if (point == UINT64_MAX) return -1;
  const std::uint64_t now = BusClock();
  if (point <= now) return 0;
  return static_cast<int>(std::min<std::uint64_t>((point - now) / 1000 + 1, kMaxPause));
}

}  // namespace

// Waits for the bus on its own thread. The thread blocks only in poll() and in Pause(), and the
// observer's destructor interrupts both.
class NotificationObserver::Implementation {
 public:
  Implementation(const std::string& name, std::function<void()> receive,
                 std::function<void(const std::string&)> report)
      : receive_(std::move(receive)), report_(std::move(report)) {
    if (!MakeSuiteSignal(name, signal_)) {
      report_("the session bus does not accept the name \"" + name + "\"");
      return;
    }
    end_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (end_ == -1) {
      Report(errno);
      return;
    }
    // The new thread inherits the signal mask: signals are for Chromium's threads.
    const BlockedSignals blocked;
    try {
      thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error& error) {
      Report(error.code().value());
    }
  }

  ~Implementation() {
    if (thread_.joinable()) {
      RequestEnd();
      thread_.join();
    }
    if (end_ != -1) close(end_);
  }

  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

 private:
  void Run() {
    pthread_setname_np(pthread_self(), "notifications");  // for debuggers; at most 15 characters
    for (;;) {
      const std::uint64_t begun = BusClock();
      const int error = Observe();
      if (error == 0) return;
      // Do not retry sooner when the bus accepts the connection and drops it at once.
      if (BusClock() - begun > kStableAfter) pause_ = kFirstPause;
      Report(error);
      if (error == kNoAddress) return;  // the environment does not change
      const int pause = pause_;
      pause_ = std::min(2 * pause_, kMaxPause);
      if (Pause(pause)) return;
    }
  }

  // Returns the error that ended the connection, or zero when the observer must end.
  int Observe() {
    SessionBus bus;
    int result = OpenSessionBus(bus);
    if (result < 0) return -result;
    refused_ = 0;
    result = sd_bus_match_signal_async(bus.get(), nullptr, nullptr, nullptr,
                                       signal_.interface.c_str(), signal_.member.c_str(),
                                       &Implementation::OnSignal, &Implementation::OnMatch, this);
    while (result >= 0 && refused_ == 0) {
      result = sd_bus_process(bus.get(), nullptr);
      if (result < 0) break;
      // A flood of signals must not delay the end of the observer.
      const bool more = result > 0;
      if (!more) Deliver();
      const int events = sd_bus_get_events(bus.get());
      std::uint64_t timeout = 0;
      if (events < 0 || sd_bus_get_timeout(bus.get(), &timeout) < 0) return ENOTCONN;
      if (Wait(sd_bus_get_fd(bus.get()), events, more ? 0 : MillisecondsUntil(timeout))) return 0;
    }
    Deliver();
    return refused_ != 0 ? refused_ : -result;
  }

  // Calls receive_ once if signals were read since the last call.
  void Deliver() {
    if (std::exchange(received_, false)) receive_();
  }

  void RequestEnd() {
    {
      const MutexLock lock(mutex_);
      ending_ = true;
    }
    end_requested_.notify_one();
    eventfd_write(end_, 1);  // can fail only after 2^64 - 2 calls
  }

  // Waits for an event, the end of the observer, or the end of the time, which is unlimited when
  // negative. Returns whether the observer must end.
  bool Wait(int descriptor, int events, int milliseconds) {
    pollfd waited[] = {{end_, POLLIN, 0}, {descriptor, static_cast<short>(events), 0}};
    if (poll(waited, 2, milliseconds) >= 0) return waited[0].revents != 0;
    return Pause(milliseconds < 0 ? kPauseAfterFailure
                                  : std::min(milliseconds, kPauseAfterFailure));
  }

  // Returns whether the observer must end. Needs no descriptor, so it works when poll() fails.
  bool Pause(int milliseconds) {
    const MutexLock lock(mutex_);
    return end_requested_.wait_for(mutex_, std::chrono::milliseconds(milliseconds),
                                   [this]() PLATFORM_REQUIRES(mutex_) { return ending_; });
  }

  static int OnSignal(sd_bus_message* /*message*/, void* observer, sd_bus_error* /*error*/) {
    static_cast<Implementation*>(observer)->received_ = true;
    return 0;
  }

  // Handles the bus's answer to the request for the signals.
  static int OnMatch(sd_bus_message* answer, void* observer, sd_bus_error* /*error*/) {
    auto* const self = static_cast<Implementation*>(observer);
    self->refused_ = sd_bus_message_get_errno(answer);
    if (self->refused_ != 0) return 0;
    self->reported_ = false;
    return 0;
  }

  void Report(int error) {
    const std::string reason = error == kNoAddress
                                   ? "neither DBUS_SESSION_BUS_ADDRESS nor XDG_RUNTIME_DIR is set"
                                   : std::generic_category().message(error);
    if (!reported_) report_("the session bus is out of reach: " + reason);
    reported_ = true;
  }

  const std::function<void()> receive_;
  const std::function<void(const std::string&)> report_;
  SuiteSignal signal_;
  int end_ = -1;  // readable when the thread is to end
  Mutex mutex_;
  std::condition_variable_any end_requested_;
  bool ending_ PLATFORM_GUARDED_BY(mutex_) = false;
  int refused_ = 0;
  bool received_ = false;
  int pause_ = kFirstPause;
  bool reported_ = false;
  std::thread thread_;
};

DeliveryThread GetDeliveryThread() { return DeliveryThread::kPrivate; }

NotificationObserver::NotificationObserver(std::string name, std::function<void()> receive,
                                           std::function<void(const std::string&)> report)
    : implementation_(
          std::make_unique<Implementation>(name, std::move(receive), std::move(report))) {}

NotificationObserver::~NotificationObserver() = default;

}  // namespace platform
