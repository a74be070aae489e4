#include "examples/suite_host/input_reader.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "examples/suite_host/later.h"

// Passes one task at a time from the reading thread to the main thread. A task that is still queued
// when the gate closes does not run, because the reader may be destroyed by then.
class InputReader::Gate : public std::enable_shared_from_this<InputReader::Gate> {
 public:
  // Must be called on the reading thread. Returns once the task has run or the gate has closed.
  void Run(std::function<void()> task) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (closed_) return;
    task_ = std::move(task);
    RunLater(0, [self = shared_from_this()] { self->RunTask(); });
    changed_.wait(lock, [this] { return closed_ || !task_; });
  }

  // Must be called on the main thread.
  void Close() {
    const std::lock_guard<std::mutex> lock(mutex_);
    closed_ = true;
    changed_.notify_all();
  }

  bool closed() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return closed_;
  }

 private:
  void RunTask() {
    if (closed()) return;
    task_();  // the reading thread waits and touches nothing
    const std::lock_guard<std::mutex> lock(mutex_);
    task_ = nullptr;
    changed_.notify_all();
  }

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::function<void()> task_;
  bool closed_ = false;
};

InputReader::InputReader(Callbacks callbacks)
    : callbacks_(std::move(callbacks)), gate_(std::make_shared<Gate>()) {}

InputReader::~InputReader() { Stop(); }

void InputReader::Start() {
  stop_event_ = eventfd(0, EFD_CLOEXEC);
  if (stop_event_ < 0) {
    callbacks_.failed("cannot create an event: " + std::system_category().message(errno));
    return;
  }
  try {
    thread_ = std::thread([this] { Read(); });
  } catch (const std::system_error& failure) {
    callbacks_.failed(std::string("cannot start a thread: ") + failure.what());
  }
}

void InputReader::Stop() {
  gate_->Close();
  if (thread_.joinable()) {
    // Cannot fail, because the counter is far from its maximum.
    eventfd_write(stop_event_, 1);
    thread_.join();
  }
  if (stop_event_ >= 0) close(std::exchange(stop_event_, -1));  // cannot lose anything
}

void InputReader::Read() {
  LineSplitter splitter(kMaxInputLine);
  const LineSplitter::Take take = [this](const InputLine& line) {
    gate_->Run([this, &line] { callbacks_.line(line); });
  };
  std::vector<char> buffer(std::size_t{64} * 1024);
  while (WaitForInput()) {
    const ssize_t size = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (size < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (size < 0) return Fail("read");
    if (size == 0) return splitter.End(take);
    splitter.Add(std::string_view(buffer.data(), static_cast<std::size_t>(size)), take);
  }
}

bool InputReader::WaitForInput() {
  pollfd descriptors[] = {{STDIN_FILENO, POLLIN, 0}, {stop_event_, POLLIN, 0}};
  while (poll(descriptors, 2, -1) < 0) {
    if (errno == EINTR) continue;
    Fail("wait for");
    return false;
  }
  return descriptors[1].revents == 0;
}

void InputReader::Fail(const char* operation) {
  const std::string error = std::string("cannot ") + operation +
                            " standard input: " + std::system_category().message(errno);
  gate_->Run([this, &error] { callbacks_.failed(error); });
}
