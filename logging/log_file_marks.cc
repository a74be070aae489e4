#include "logging/log_file_marks.h"

#include <sys/ipc.h>
#include <sys/shm.h>

namespace tarn {
namespace {

constexpr int kAttempts = 100;

}  // namespace

LogFileMarks::~LogFileMarks() { detach(); }

bool LogFileMarks::attach(const std::string& path, int projectId) {
  if (segment_) return true;
  const key_t key = ftok(path.c_str(), projectId);
  if (key == -1) return false;
  // Again when the last one removes the segment between these calls.
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    // New memory is filled with zeros.
    id_ = shmget(key, sizeof(Segment), IPC_CREAT | 0666);
    if (id_ == -1) return false;
    shmid_ds state{};
    if (shmctl(id_, IPC_STAT, &state) == -1) continue;
    if (state.shm_segsz != sizeof(Segment)) return false;  // another program's, by chance
    void* const address = shmat(id_, nullptr, 0);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): so the system says that it failed.
    if (address == reinterpret_cast<void*>(-1)) continue;
    segment_ = static_cast<Segment*>(address);
    return true;
  }
  return false;
}

void LogFileMarks::detach() {
  if (!segment_) return;
  shmdt(segment_);  // fails only for another address
  segment_ = nullptr;
  shmid_ds state{};
  if (shmctl(id_, IPC_STAT, &state) == -1 || state.shm_nattch != 0) return;
  // Fails when another process was faster, or the segment is another user's: then it stays for the
  // next start.
  shmctl(id_, IPC_RMID, nullptr);
}

}  // namespace tarn
