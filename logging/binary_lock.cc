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

// Creating or removing a set takes a few system calls. An attempt that meets another process's
// change starts over; after this many attempts something else is wrong.
constexpr int kAttempts = 100;

// A holder keeps the lock for one line. Retrying that long costs less than a sleep and a wake-up,
// and once processes sleep, every handover of the lock needs a wake-up. A holder that takes longer
// is probably not running, so the waiting processes yield the processor to it.
constexpr int kTriesBeforeYield = 20;
constexpr int kTriesBeforeSleep = 100;

// The time in milliseconds within which the creator of a set must give it its first value.
constexpr int kCreatorTimeout = 250;

// The last argument of semctl().
union SemaphoreArgument {
  int val;
  semid_ds* buf;
};

// Returns whether the last call failed because the set no longer exists.
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

// Creates the set and frees its lock. Returns false with EEXIST when another process was faster.
bool CreateSet(key_t key, int& id) {
  id = semget(key, 2, IPC_CREAT | IPC_EXCL | kSetMode);
  if (id == -1) return false;
  SemaphoreArgument free{};
  free.val = 1;
  if (semctl(id, kLock, SETVAL, free) != -1) return true;
  const int error = errno;
  // No process could ever take this lock. If the removal fails as well, WaitForCreator() of a later
  // start removes the set.
  Remove(id);
  errno = error;
  return false;
}

enum class SetState { kReady, kGone, kUnusable };

// Waits until the set's creator has freed the lock. A held lock also counts as freed before: taking
// it is an operation, which sets the time of the last operation. Removes the set if its creator
// died before it freed the lock; a set that may not be removed is unusable.
SetState WaitForCreator(int id) {
  for (int waited = 0; waited < kCreatorTimeout; ++waited) {
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

// Killed users leave the count too high, so a long-lived set reaches the maximum, which the kernel
// reports as ERANGE. Logging then matters more than the removal of the set.
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
  if (id_ != vanished) return true;  // another thread attached
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

// Tries again to release the kept lock. If that fails again, this object still holds the lock, so
// taking it succeeds.
bool BinaryLock::TakeKept() {
  const int kept = kept_id_.exchange(-1);
  if (kept == -1 || kept_process_ != getpid() || Free(kept) || Vanished()) return false;
  held_id_ = kept;
  return true;
}

// Releases the set that was taken. Another object may hold a set that has replaced it since.
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

// One operation checks for users and takes the lock. A user that registers later can only wait for
// a lock that is about to vanish, and then creates a new set. If the set were removed while another
// object holds the lock, the new set would admit a second holder.
bool BinaryLock::RemoveIfUnused(int id) const {
  sembuf unused_and_free[] = {{kUsers, 0, IPC_NOWAIT}, {kLock, -1, SEM_UNDO | IPC_NOWAIT}};
  if (Operate(id, unused_and_free, 2)) {
    if (Remove(id) || Vanished()) return true;
    Free(id);  // the set belongs to another user and stays usable
    return false;
  }
  // This object may hold the lock itself. Any other holder is an uncounted object or a process that
  // removes the set at the same time. A forked copy of the object does not hold the lock.
  if (held_id_ != id || semctl(id, kLock, GETPID) != getpid()) return true;
  sembuf unused_and_held[] = {{kUsers, 0, IPC_NOWAIT}, {kLock, 0, IPC_NOWAIT}};
  if (!Operate(id, unused_and_held, 2)) return true;
  return Remove(id) || Vanished();
}

}  // namespace tarn
