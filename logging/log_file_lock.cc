#include "logging/log_file_lock.h"

#include <pthread.h>
#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace tarn {

// Keeps a list of all locks of this process. fork() first takes the mutexes of all of them, because
// the child could not release a mutex that another thread holds. The functions for fork() are not
// analyzed: they keep mutexes when they return.
class LiveLocks {
 public:
  static LiveLocks& Instance() {
    // Never destroyed, because a log target may live until the process exits.
    static LiveLocks& instance = *new LiveLocks;
    return instance;
  }

  void Add(LogFileLock* lock) {
    const platform::MutexLock guard(mutex_);
    locks_.push_back(lock);
  }

  void Remove(LogFileLock* lock) {
    const platform::MutexLock guard(mutex_);
    locks_.erase(std::find(locks_.begin(), locks_.end(), lock));
  }

 private:
  LiveLocks() {
    pthread_atfork([] { Instance().BeforeFork(); }, [] { Instance().AfterForkInParent(); },
                   [] { Instance().AfterForkInChild(); });
  }

  // A thread that holds one lock may wait for another. Therefore, this thread waits for a lock only
  // while it holds no lock, as std::lock() does.
  void BeforeFork() PLATFORM_NO_THREAD_SAFETY_ANALYSIS {
    mutex_.lock();
    std::size_t first = 0;
    std::size_t taken = 0;
    while (taken < locks_.size()) {
      const std::size_t next = (first + taken) % locks_.size();
      if (Take(*locks_[next], taken == 0)) {
        ++taken;
      } else {
        ReleaseAll();
        first = next;
        taken = 0;
      }
    }
  }

  // If this thread already holds the lock, the scope that took it keeps it.
  static bool Take(LogFileLock& lock, bool wait) PLATFORM_NO_THREAD_SAFETY_ANALYSIS {
    if (lock.IsMine()) return true;
    if (wait) {
      lock.mutex_.lock();
    } else if (!lock.mutex_.try_lock()) {
      return false;
    }
    lock.taken_for_fork_ = true;
    return true;
  }

  void ReleaseAll() PLATFORM_NO_THREAD_SAFETY_ANALYSIS {
    for (LogFileLock* const lock : locks_) {
      if (!lock->taken_for_fork_) continue;
      lock->taken_for_fork_ = false;
      lock->mutex_.unlock();
    }
  }

  void AfterForkInParent() PLATFORM_NO_THREAD_SAFETY_ANALYSIS {
    ReleaseAll();
    mutex_.unlock();
  }

  void AfterForkInChild() PLATFORM_NO_THREAD_SAFETY_ANALYSIS {
    for (LogFileLock* const lock : locks_)
      lock->held_by_parent_ = !lock->taken_for_fork_;
    AfterForkInParent();
  }

  platform::Mutex mutex_;
  std::vector<LogFileLock*> locks_ PLATFORM_GUARDED_BY(mutex_);
};

LogFileLock::LogFileLock() { LiveLocks::Instance().Add(this); }

LogFileLock::~LogFileLock() { LiveLocks::Instance().Remove(this); }

void LogFileLock::Create(const std::string& path) {
  const ThreadScope threads(*this);
  if (!path_.empty()) return;
  path_ = path;
  Attach();
}

void LogFileLock::Discard() {
  const ThreadScope threads(*this);
  path_.clear();
  file_.reset();
}

void LogFileLock::Attach() {
  last_attempt_ = std::time(nullptr);
  auto lock = std::make_unique<BinaryLock>();
  if (lock->create(path_, kLogFileProjectId)) file_ = std::move(lock);
}

bool LogFileLock::AttachAgain() {
  if (!path_.empty() && std::time(nullptr) != last_attempt_) Attach();
  return file_ != nullptr;
}

LogFileLock::Scope::Scope(LogFileLock& lock, HeldByCaller /*caller*/)
    : lock_(lock), takes_(false) {}

void LogFileLock::Scope::MoveTo(std::string path) {
  if (held_) lock_.file_->release();
  held_ = false;
  lock_.file_.reset();
  lock_.path_ = std::move(path);
  lock_.Attach();
  held_ = lock_.file_ && lock_.file_->wait();
}

}  // namespace tarn
