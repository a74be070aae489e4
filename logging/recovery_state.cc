#include "logging/recovery_state.h"

#include <sys/ipc.h>
#include <sys/shm.h>
#include <cerrno>

namespace tarn {
namespace {

constexpr int kAttempts = 100;
constexpr int kMode = 0666;

}  // namespace

RecoveryState::~RecoveryState() { Detach(); }

bool RecoveryState::Attach(const LogFileLock::Scope& lock, const LogFile& file) {
  if (is_shared() && IsOf(file.identity())) return true;
  Detach();
  if (!IsOf(file.identity())) BeginFor(file.identity());
  if (!Share(file)) return false;
  // Copies the words that this object set without shared memory.
  if (own_.writing != 0) SetWriting(lock, true);
  if (own_.rotating != 0) SetRotating(lock, true);
  if (own_.header_due != 0) SetHeaderDue(lock, true);
  own_.writing = own_.rotating = own_.header_due = 0;
  return true;
}

void RecoveryState::BeginFor(const FileIdentity& file) {
  for (Word Words::*const word : {&Words::writing, &Words::rotating, &Words::header_due})
    Set(word, 0);
  Set(&Words::inode, file.inode);
  Set(&Words::device, static_cast<std::uint64_t>(file.device));
}

bool RecoveryState::Share(const LogFile& file) {
  bool created = false;
  if (UseSegment(file, created)) return true;
  if (created) RemoveIfUnused();
  return false;
}

bool RecoveryState::UseSegment(const LogFile& file, bool& created) {
  const key_t key = ftok(file.path().c_str(), kLogFileProjectId);
  if (key == -1 || !file.IsAtPath()) return false;  // the key may be that of another file
  // Repeats the calls if the last user removes the segment between them.
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    id_ = shmget(key, sizeof(Words), kMode);
    if (id_ == -1 && errno == ENOENT) {
      // New memory is filled with zeros.
      id_ = shmget(key, sizeof(Words), IPC_CREAT | IPC_EXCL | kMode);
      created = id_ != -1;
      if (!created && errno == EEXIST) continue;
    }
    if (id_ == -1) return false;
    shmid_ds state{};
    if (shmctl(id_, IPC_STAT, &state) == -1) continue;
    if (state.shm_segsz != sizeof(Words)) return false;  // belongs to another program
    void* const address = shmat(id_, nullptr, 0);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): shmat() returns -1 for a failure.
    if (address == reinterpret_cast<void*>(-1)) continue;
    words_ = static_cast<Words*>(address);
    if (Claim(file.identity())) return true;
    shmdt(words_);
    words_ = &own_;
    return false;
  }
  return false;
}

// The lock prevents other processes from doing the same at this time.
bool RecoveryState::Claim(const FileIdentity& file) {
  if (IsOf(file)) return true;
  shmid_ds state{};
  if (shmctl(id_, IPC_STAT, &state) == -1) return false;
  // A segment without other users is new, or remains from a file that no process has open.
  if (state.shm_nattch != 1) return false;
  BeginFor(file);
  return true;
}

void RecoveryState::Detach() {
  if (!is_shared()) return;
  const bool is_needed = IsAnySet();
  shmdt(words_);  // fails only for another address
  words_ = &own_;
  if (!is_needed) RemoveIfUnused();
}

void RecoveryState::RemoveIfUnused() const {
  shmid_ds state{};
  if (shmctl(id_, IPC_STAT, &state) == -1 || state.shm_nattch != 0) return;
  // Fails when another process was faster or when the segment belongs to another user; then the
  // segment stays for the next start.
  shmctl(id_, IPC_RMID, nullptr);
}

}  // namespace tarn
