#pragma once

#include <mutex>

// Locks that clang checks at compile time (-Wthread-safety). Other compilers ignore the
// annotations.
#if defined(__clang__)
#define PLATFORM_THREAD_ANNOTATION(attribute) __attribute__((attribute))
#else
#define PLATFORM_THREAD_ANNOTATION(attribute)
#endif

// A class whose objects are locks.
#define PLATFORM_CAPABILITY(name) PLATFORM_THREAD_ANNOTATION(capability(name))
// A class whose objects hold a lock for as long as they live.
#define PLATFORM_SCOPED_CAPABILITY PLATFORM_THREAD_ANNOTATION(scoped_lockable)
// A variable, or the object that a pointer leads to, that requires the lock.
#define PLATFORM_GUARDED_BY(lock) PLATFORM_THREAD_ANNOTATION(guarded_by(lock))
#define PLATFORM_PT_GUARDED_BY(lock) PLATFORM_THREAD_ANNOTATION(pt_guarded_by(lock))
// A function whose caller must hold the locks.
#define PLATFORM_REQUIRES(...) PLATFORM_THREAD_ANNOTATION(requires_capability(__VA_ARGS__))
// A function that takes or releases the locks, or the object itself without locks among the
// arguments. The first argument of PLATFORM_TRY_ACQUIRE is the result that means success.
#define PLATFORM_ACQUIRE(...) PLATFORM_THREAD_ANNOTATION(acquire_capability(__VA_ARGS__))
#define PLATFORM_TRY_ACQUIRE(...) PLATFORM_THREAD_ANNOTATION(try_acquire_capability(__VA_ARGS__))
#define PLATFORM_RELEASE(...) PLATFORM_THREAD_ANNOTATION(release_capability(__VA_ARGS__))
// A function whose body the analysis cannot follow.
#define PLATFORM_NO_THREAD_SAFETY_ANALYSIS PLATFORM_THREAD_ANNOTATION(no_thread_safety_analysis)

namespace platform {

// A std::mutex with annotations.
class PLATFORM_CAPABILITY("mutex") Mutex {
 public:
  void lock() PLATFORM_ACQUIRE() { mutex_.lock(); }
  bool try_lock() PLATFORM_TRY_ACQUIRE(true) { return mutex_.try_lock(); }
  void unlock() PLATFORM_RELEASE() { mutex_.unlock(); }

 private:
  std::mutex mutex_;
};

// A std::lock_guard for a Mutex.
class PLATFORM_SCOPED_CAPABILITY MutexLock {
 public:
  explicit MutexLock(Mutex& mutex) PLATFORM_ACQUIRE(mutex) : mutex_(mutex) { mutex_.lock(); }
  MutexLock(const MutexLock&) = delete;
  MutexLock& operator=(const MutexLock&) = delete;
  ~MutexLock() PLATFORM_RELEASE() { mutex_.unlock(); }

 private:
  Mutex& mutex_;
};

}  // namespace platform
