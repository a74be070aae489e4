#pragma once

#include <sys/types.h>
#include <atomic>
#include <string>

#include "platform/mutex.h"

namespace tarn {

// A lock shared by all processes that write one file: a System V semaphore set whose key ftok()
// derives from the file's path. Other programs share the set, so the meaning of its two semaphores
// is fixed: number 0 counts the attached lock objects; number 1 is the lock, 1 when free and 0 when
// held.
//
// When a process ends for any reason, the kernel releases its lock. If the process did not detach,
// the count stays one too high and the set remains for the next start.
//
// When the count is at the system's maximum, an object attaches uncounted: it uses the lock like
// any other, but does not lower the count or remove the set when it detaches. The set can vanish
// while only uncounted objects use it; the next wait() then recreates the set. A forked child's
// copy of an object is uncounted.
//
// Any thread may call wait() and release(). The lock has no owner thread: any thread may release
// it, and taking it twice blocks. Errors are reported by the return values alone.
class BinaryLock {
 public:
  BinaryLock() = default;
  BinaryLock(const BinaryLock&) = delete;
  BinaryLock& operator=(const BinaryLock&) = delete;
  // Calls finalize().
  ~BinaryLock();

  // Attaches to the set of an existing file and creates the set if it is missing. If several
  // processes do so at once, exactly one creates the set. If this object is already attached,
  // returns true and ignores the arguments. Returns false when the file is missing, or when the set
  // cannot be created, read or changed. Can take some tenths of a second when another process died
  // while it created the set.
  bool create(std::string path, int projectId);

  // Takes the lock. Blocks until the lock is free; signals do not interrupt it. Recreates a set
  // that another program removed. Returns false when the lock cannot be taken or the set cannot be
  // recreated. Returns false at once before create() succeeded and after finalize().
  bool wait();

  // Releases the lock, which must be held: releasing a free lock would admit two holders. Returns
  // false after a failure. If the set still exists, this object then keeps the lock, and the next
  // wait() or finalize() tries again to release it.
  bool release();

  // Detaches. The last counted object removes the set, unless another object holds the lock. While
  // the set remains, a lock held through this object stays held, and release() can still release
  // it. Returns true if this object was not attached. Returns false when the set vanished, or when
  // the set belongs to another user and may not be removed; such a set stays usable.
  bool finalize();

 private:
  bool Attach() PLATFORM_REQUIRES(attach_mutex_);
  bool Register(int id) PLATFORM_REQUIRES(attach_mutex_);
  bool AttachAgain(int vanished);
  bool TakeKept();
  bool RemoveIfUnused(int id) const;

  // Only the holder changes held_id_, so plain stores replace a costly exchange.
  std::atomic<int> id_{-1};             // of the set, or -1
  std::atomic<int> held_id_{-1};        // of the set whose lock is held through this object
  std::atomic<int> kept_id_{-1};        // of the set whose lock release() failed to release
  std::atomic<pid_t> kept_process_{0};  // the process that keeps it, not a forked child
  platform::Mutex attach_mutex_;        // one thread at a time replaces a vanished set
  std::string path_ PLATFORM_GUARDED_BY(attach_mutex_);
  int project_id_ PLATFORM_GUARDED_BY(attach_mutex_) = 0;
  bool attached_once_ PLATFORM_GUARDED_BY(attach_mutex_) = false;
  pid_t counted_process_ PLATFORM_GUARDED_BY(attach_mutex_) = 0;  // 0 for an uncounted object
};

}  // namespace tarn
