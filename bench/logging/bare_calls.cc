#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/sem.h>
#include <unistd.h>
#include <cstdlib>
#include <mutex>

#include "bench/logging/contender.h"
#include "bench/logging/line.h"

// The minimum cost of a locked line: the system calls, with a prepared line.

namespace {

constexpr int kProjectId = 11;
constexpr unsigned short kLock = 1;  // the semaphore, of two as in the library's sets
constexpr int kTries = 100;

bool TryOperate(int set, short change, short flags) {
  sembuf operation{kLock, change, flags};
  return semop(set, &operation, 1) == 0;
}

void Expect(bool good) {
  if (!good) std::abort();  // a worker that fails ends the measurement
}

// Acquires and releases the semaphore.
class BareLock {
 public:
  virtual ~BareLock() = default;
  virtual void Take(int set) { Expect(TryOperate(set, -1, SEM_UNDO)); }
  virtual void Give(int set) { Expect(TryOperate(set, 1, SEM_UNDO)); }
};

// Tries several times before it sleeps in the kernel.
class TryingLock : public BareLock {
 public:
  void Take(int set) override {
    for (int i = 0; i < kTries; ++i) {
      if (TryOperate(set, -1, IPC_NOWAIT | SEM_UNDO)) return;
    }
    BareLock::Take(set);
  }
};

// Allows only one thread of the process at a time to use the semaphore.
class MutexLock : public TryingLock {
 public:
  void Take(int set) override {
    mutex_.lock();
    TryingLock::Take(set);
  }
  void Give(int set) override {
    TryingLock::Give(set);
    mutex_.unlock();
  }

 private:
  std::mutex mutex_;
};

class BareCalls : public Contender {
 public:
  explicit BareCalls(std::unique_ptr<BareLock> lock) : lock_(std::move(lock)) {}

  bool Prepare(const std::string& path) override {
    const key_t key = ftok(path.c_str(), kProjectId);
    if (key == -1) return false;
    set_ = semget(key, 2, IPC_CREAT | IPC_EXCL | 0600);
    return set_ != -1 && semctl(set_, kLock, SETVAL, 1) == 0;
  }

  void CleanUp() override {
    if (set_ != -1) semctl(set_, 0, IPC_RMID);
  }

  bool Open(const std::string& path) override {
    file_ = open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    return file_ != -1;
  }

  void Close() override { close(file_); }

  void Log(const std::string& name, long lines) override {
    const std::string line = ReadyLine(name);
    for (long i = 0; i < lines; ++i) {
      lock_->Take(set_);
      Expect(write(file_, line.data(), kLineLength) == kLineLength);
      lock_->Give(set_);
    }
  }

 private:
  const std::unique_ptr<BareLock> lock_;
  int set_ = -1;
  int file_ = -1;
};

}  // namespace

std::unique_ptr<Contender> MakeContender(const std::string& kind) {
  std::unique_ptr<BareLock> lock;
  if (kind == "limit") lock = std::make_unique<BareLock>();
  if (kind == "limit, tries") lock = std::make_unique<TryingLock>();
  if (kind == "limit, mutex, tries") lock = std::make_unique<MutexLock>();
  return lock ? std::make_unique<BareCalls>(std::move(lock)) : nullptr;
}
