#pragma once

#include <sys/types.h>
#include <atomic>
#include <string>

#include "platform/mutex.h"

namespace tarn {

// A lock for all processes that write one file: a System V semaphore set whose key ftok() makes of
// the file's path. Other programs share it, so what the two semaphores mean is fixed: number 0
// counts the lock objects that are attached, number 1 is the lock, 1 when free and 0 when held.
//
// The kernel gives the lock of a process back when that ends, however it ends. The count of such a
// process stays one too high, and its set stays for the next start.
//
// A full count does not keep a process from the lock. At the system's maximum, an object attaches
// uncounted: it uses the lock like any other, lowers no count and removes no set when it detaches.
// The set can vanish while only uncounted objects use it; the next wait() then recreates it. A
// forked child's copy of an object is uncounted.
//
// Any thread may call wait() and release(); the lock does not know threads, so another one than the
// taker may release it, and taking it twice blocks. Nothing is reported but by the results.
class BinaryLock {
 public:
  BinaryLock() = default;
  BinaryLock(const BinaryLock&) = delete;
  BinaryLock& operator=(const BinaryLock&) = delete;
  // finalize()
  ~BinaryLock();

  // Attaches to the set of an existing file, and creates it if there is none. Of several processes
  // that create it at once, one does. True also when this object is attached already. False when
  // the set allows no changes or its state cannot be read. Can take some tenths of a second when
  // another process died while it created the set.
  bool create(std::string path, int projectId);

  // Takes the lock; blocks until it is free, a signal does not end that. False at once when
  // create() failed. A set that another program removed is created anew.
  bool wait();

  // Gives the lock back. After a failure this object keeps the lock, and the next wait() or
  // finalize() tries again to give it back.
  bool release();

  // Detaches; the last counted object removes the set, unless another object holds the lock. True
  // also when nothing was attached. False when the set vanished, or is another user's and may not
  // be removed: it stays usable then.
  bool finalize();

 private:
  bool Attach() PLATFORM_REQUIRES(attach_mutex_);
  bool Register(int id) PLATFORM_REQUIRES(attach_mutex_);
  bool AttachAgain(int vanished);
  bool TakeKept();
  bool RemoveIfUnused(int id) const;

  // held_id_ is changed by the holder alone, and so without the cost of an exchange.
  std::atomic<int> id_{-1};             // of the set, -1 without one
  std::atomic<int> held_id_{-1};        // of the set whose lock is held through this object
  std::atomic<int> kept_id_{-1};        // of the set whose lock release() failed to give back
  std::atomic<pid_t> kept_process_{0};  // the process that keeps it, not a forked child
  platform::Mutex attach_mutex_;        // one thread at a time replaces a set that vanished
  std::string path_ PLATFORM_GUARDED_BY(attach_mutex_);
  int project_id_ PLATFORM_GUARDED_BY(attach_mutex_) = 0;
  bool attached_once_ PLATFORM_GUARDED_BY(attach_mutex_) = false;
  pid_t counted_process_ PLATFORM_GUARDED_BY(attach_mutex_) = 0;  // 0 for an uncounted object
};

}  // namespace tarn
