#pragma once

#include <atomic>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "logging/binary_lock.h"
#include "platform/mutex.h"

namespace tarn {

// The project number with which all programs that share a log file call ftok() for its keys.
inline constexpr int kLogFileProjectId = 11;

// The two locks of a log file, which are always taken together: a mutex for the threads of this
// process, then the BinaryLock for the processes that share the file. With the mutex first, a
// waiting thread need not be woken twice.
//
// Any thread may call fork() at any time: fork() waits for the threads that hold such a mutex, and
// the child can log at once. A thread keeps the mutex while it waits for another process, so fork()
// can take as long as that process holds the lock of the file: usually one line, at most a
// rotation. One exception: a thread that holds a LogFileLock must not create or destroy another one
// while another thread forks.
class LogFileLock {
 public:
  LogFileLock();
  LogFileLock(const LogFileLock&) = delete;
  LogFileLock& operator=(const LogFileLock&) = delete;
  ~LogFileLock();

  // Holds the mutex for as long as it lives, unless this thread already holds it.
  class PLATFORM_SCOPED_CAPABILITY ThreadScope {
   public:
    explicit ThreadScope(LogFileLock& lock) PLATFORM_ACQUIRE(lock.mutex_);
    ThreadScope(const ThreadScope&) = delete;
    ThreadScope& operator=(const ThreadScope&) = delete;
    ~ThreadScope() PLATFORM_RELEASE();

    // Returns whether this object took the mutex.
    bool took() const { return took_; }

   private:
    LogFileLock& lock_;
    const bool took_;
  };

  // Marks a scope whose caller already holds the lock of the file.
  struct HeldByCaller {};

  // Holds both locks for as long as it lives. Functions that require the lock have a parameter of
  // this type.
  class Scope {
   public:
    // Blocks until the locks are free. held() is false when the lock of the file is unavailable, or
    // when this thread already holds it, because the lock is not recursive. If the lock could not
    // be created, tries again at most once in each second of the clock.
    explicit Scope(LogFileLock& lock);
    // Takes and releases nothing. held() is true.
    Scope(LogFileLock& lock, HeldByCaller caller);
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope();

    bool held() const { return held_; }

    // Returns whether MoveTo() is allowed, that is, whether this object took the mutex.
    bool can_move() const { return threads_ && threads_->took(); }

    // Releases the lock of the file if it is held, then attaches to the lock of the file at `path`
    // and takes it. If the new lock cannot be taken, held() becomes false and a later scope tries
    // again. Requires can_move().
    void MoveTo(std::string path) PLATFORM_NO_THREAD_SAFETY_ANALYSIS;

   private:
    LogFileLock& lock_;
    const bool takes_;
    std::optional<ThreadScope> threads_;
    bool held_ = true;
  };

  // Attaches to the lock of the file at `path`, unless the lock already has a file. When that
  // fails, a later scope tries again.
  void Create(const std::string& path);

  // Detaches from the lock of the file. Create() can then select another file.
  void Discard();

 private:
  friend class LiveLocks;

  // Attaches to the lock of the file at path_.
  void Attach() PLATFORM_REQUIRES(mutex_);
  // Repeats a failed Attach() in another second of the clock. Returns whether the lock is attached.
  bool AttachAgain() PLATFORM_REQUIRES(mutex_);
  bool IsAttached() PLATFORM_REQUIRES(mutex_) { return file_ || AttachAgain(); }

  bool IsMine() const { return owner_.load(std::memory_order_relaxed) == Self(); }
  static std::thread::id Self() { return std::this_thread::get_id(); }

  platform::Mutex mutex_;
  std::atomic<std::thread::id> owner_{};  // the thread whose scope has the mutex
  bool taken_for_fork_ PLATFORM_GUARDED_BY(mutex_) = false;
  // True if the process that forked this one held the lock at that time.
  bool held_by_parent_ PLATFORM_GUARDED_BY(mutex_) = false;
  std::string path_ PLATFORM_GUARDED_BY(mutex_);                  // empty before Create()
  std::time_t last_attempt_ PLATFORM_GUARDED_BY(mutex_) = 0;      // of Attach()
  std::unique_ptr<BinaryLock> file_ PLATFORM_GUARDED_BY(mutex_);  // null while not attached
};

// These functions are inline because every line runs them around its system calls: the processor
// predicts the return of a function badly if the function made a system call.
inline LogFileLock::ThreadScope::ThreadScope(LogFileLock& lock)
    : lock_(lock), took_(!lock.IsMine()) {
  if (!took_) return;
  lock_.mutex_.lock();
  lock_.owner_.store(Self(), std::memory_order_relaxed);
}

inline LogFileLock::ThreadScope::~ThreadScope() {
  if (!took_) return;
  lock_.owner_.store(std::thread::id(), std::memory_order_relaxed);
  lock_.mutex_.unlock();
}

inline LogFileLock::Scope::Scope(LogFileLock& lock) : lock_(lock), takes_(true), threads_(lock) {
  held_ = threads_->took() && lock_.IsAttached() && lock_.file_->wait();
  if (held_) lock_.held_by_parent_ = false;
}

inline LogFileLock::Scope::~Scope() {
  if (!takes_ || !held_) return;
  // The parent process releases its lock itself.
  if (lock_.held_by_parent_) {
    lock_.held_by_parent_ = false;
  } else if (lock_.file_) {
    lock_.file_->release();  // fails when the set vanished; the next wait() creates a new set
  }
}

}  // namespace tarn
