#include "logging/binary_lock.h"

#include <sched.h>
#include <sys/ipc.h>
#include <sys/sem.h>
#include <unistd.h>
#include <cerrno>
#include <ctime>
#include <utility>

#include "platform/retry.h"

namespace tarn {
namespace {

constexpr unsigned short kUsers = 0;
constexpr unsigned short kLock = 1;
constexpr int kSetMode = 0666;

// A set is created and removed in the time of a few system calls: whoever meets that starts over,
// and after so many times something else is wrong.
constexpr int kAttempts = 100;

// A holder writes one line. To try again for that long costs less than to sleep and be woken; and
// once processes sleep, the lock goes from one to the next of them, each of which has to be woken.
// A holder that does not come to an end so soon does not run, as other processes do: then they let
// it. (With 16 processes on two cores: 470,000 lines a second, 27,000 without those yields.)
constexpr int kTriesBeforeYield = 20;
constexpr int kTriesBeforeSleep = 100;

// How long a creator may take from the creation of the set to its first value, in milliseconds.
constexpr int kCreatorPatience = 250;

// What semctl() takes as its last argument.
union SemaphoreArgument {
  int val;
  semid_ds* buf;
};

// Whether the last call failed because there is no such set any more.
bool Vanished() { return errno == EIDRM || errno == EINVAL; }

bool Operate(int id, sembuf* operations, std::size_t count) {
  return platform::RetryWhenInterrupted([&] { return semop(id, operations, count); }) == 0;
}

bool ChangeUsers(int id, short change) {
  sembuf operation = {kUsers, change, IPC_NOWAIT};
  return Operate(id, &operation, 1);
}

bool Take(int id) {
  sembuf attempt = {kLock, -1, SEM_UNDO | IPC_NOWAIT};
  for (int i = 0; i < kTriesBeforeSleep; ++i) {
    if (Operate(id, &attempt, 1)) return true;
    if (errno != EAGAIN) return false;
    if (i >= kTriesBeforeYield) sched_yield();
  }
  sembuf operation = {kLock, -1, SEM_UNDO};
  return Operate(id, &operation, 1);
}

bool Free(int id) {
  sembuf operation = {kLock, 1, SEM_UNDO};
  return Operate(id, &operation, 1);
}

bool Remove(int id) { return semctl(id, 0, IPC_RMID) != -1; }

// Creates the set and makes its lock free. False with EEXIST when another process was faster.
bool CreateSet(key_t key, int& id) {
  id = semget(key, 2, IPC_CREAT | IPC_EXCL | kSetMode);
  if (id == -1) return false;
  SemaphoreArgument free{};
  free.val = 1;
  if (semctl(id, kLock, SETVAL, free) != -1) return true;
  const int error = errno;
  // Nobody could ever take this lock. When the removal fails as well, it waits for the next start.
  Remove(id);
  errno = error;
  return false;
}

enum class SetState { kReady, kGone, kUnusable };

// Waits until the set's creator has freed the lock. The creator then registers as a user, and every
// holder of the lock has changed it, so the set of a held lock has seen an operation. Removes the
// set of a creator that died before; one that may not be removed is unusable.
SetState WaitForCreator(int id) {
  for (int waited = 0; waited < kCreatorPatience; ++waited) {
    semid_ds state{};
    SemaphoreArgument output{};
    output.buf = &state;
    const int value = semctl(id, kLock, GETVAL);
    if (value == -1 || semctl(id, 0, IPC_STAT, output) == -1) {
      return Vanished() ? SetState::kGone : SetState::kUnusable;
    }
    if (value != 0 || state.sem_otime != 0) return SetState::kReady;
    const timespec millisecond = {0, 1000000};
    nanosleep(&millisecond, nullptr);  // shorter when a signal comes
  }
  return Remove(id) || Vanished() ? SetState::kGone : SetState::kUnusable;
}

}  // namespace

BinaryLock::~BinaryLock() { finalize(); }

bool BinaryLock::create(std::string path, int projectId) {
  const platform::MutexLock lock(attach_mutex_);
  if (id_ != -1) return true;
  path_ = std::move(path);
  project_id_ = projectId;
  attached_once_ = Attach();
  return attached_once_;
}

bool BinaryLock::Attach() {
  const key_t key = ftok(path_.c_str(), project_id_);
  if (key == -1) return false;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    int id = semget(key, 0, 0);
    if (id != -1) {
      const SetState state = WaitForCreator(id);
      if (state == SetState::kUnusable) return false;
      if (state == SetState::kGone) continue;
    } else if (!CreateSet(key, id)) {
      if (errno == EEXIST || Vanished()) continue;
      return false;
    }
    if (Register(id)) return true;
    if (!Vanished()) return false;
  }
  return false;
}

// Users that are killed leave the count too high, so a set that lives for long reaches the maximum,
// for which the kernel reports ERANGE. Lines matter more than the removal of such a set.
bool BinaryLock::Register(int id) {
  const bool counted = ChangeUsers(id, 1);
  if (!counted && errno != ERANGE) return false;
  counted_process_ = counted ? getpid() : 0;
  id_ = id;
  return true;
}

bool BinaryLock::AttachAgain(int vanished) {
  const platform::MutexLock lock(attach_mutex_);
  if (!attached_once_) return false;
  if (id_ != vanished) return true;  // another thread did it
  id_ = -1;
  return Attach();
}

bool BinaryLock::wait() {
  if (kept_id_ != -1 && TakeKept()) return true;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const int id = id_;
    if (id != -1) {
      if (Take(id)) {
        held_id_.store(id, std::memory_order_relaxed);
        return true;
      }
      if (!Vanished()) return false;
    }
    if (!AttachAgain(id)) return false;
  }
  return false;
}

// Gives back what release() failed to; where that fails again, the lock is still taken.
bool BinaryLock::TakeKept() {
  const int kept = kept_id_.exchange(-1);
  if (kept == -1 || kept_process_ != getpid() || Free(kept) || Vanished()) return false;
  held_id_ = kept;
  return true;
}

// The set that was taken, not the one that replaced it in the meantime: that may be held by
// another.
bool BinaryLock::release() {
  const int held = held_id_.load(std::memory_order_relaxed);
  held_id_.store(-1, std::memory_order_relaxed);
  if (Free(held != -1 ? held : id_.load())) return true;
  if (held != -1 && !Vanished()) {
    kept_process_ = getpid();
    kept_id_ = held;
  }
  return false;
}

bool BinaryLock::finalize() {
  const platform::MutexLock lock(attach_mutex_);
  attached_once_ = false;
  const int kept = kept_id_.exchange(-1);
  if (kept != -1 && kept_process_ == getpid()) Free(kept);
  const int id = id_.exchange(-1);
  if (id == -1 || counted_process_ != getpid()) return true;
  return ChangeUsers(id, -1) && RemoveIfUnused(id);
}

// The check for users and the taking of the lock are one operation: whoever registers after it can
// only wait for a lock that is about to vanish, and creates a new set then. Were the set removed
// from under a holder of the lock, that new set would let a second one in.
bool BinaryLock::RemoveIfUnused(int id) const {
  sembuf unused_and_free[] = {{kUsers, 0, IPC_NOWAIT}, {kLock, -1, SEM_UNDO | IPC_NOWAIT}};
  if (Operate(id, unused_and_free, 2)) {
    if (Remove(id) || Vanished()) return true;
    Free(id);  // the set is another user's: it stays, for all to use
    return false;
  }
  // This object may hold the lock itself. Any other holder is an uncounted object, or a process in
  // the same removal. A forked copy of the object does not hold the lock.
  if (held_id_ != id || semctl(id, kLock, GETPID) != getpid()) return true;
  sembuf unused_and_held[] = {{kUsers, 0, IPC_NOWAIT}, {kLock, 0, IPC_NOWAIT}};
  if (!Operate(id, unused_and_held, 2)) return true;
  return Remove(id) || Vanished();
}

}  // namespace tarn
