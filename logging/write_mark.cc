#include "logging/write_mark.h"

#include <sys/ipc.h>
#include <sys/shm.h>

namespace tarn {

WriteMark::~WriteMark() { detach(); }

bool WriteMark::attach(const std::string& path, int projectId) {
  if (segment_) return true;
  const key_t key = ftok(path.c_str(), projectId);
  if (key == -1) return false;
  // New memory is filled with zeros.
  const int id = shmget(key, sizeof(Segment), IPC_CREAT | 0666);
  shmid_ds state{};
  if (id == -1 || shmctl(id, IPC_STAT, &state) == -1) return false;
  if (state.shm_segsz != sizeof(Segment)) return false;  // another program's, by chance
  void* const address = shmat(id, nullptr, 0);
  if (address == reinterpret_cast<void*>(-1)) return false;
  id_ = id;
  segment_ = static_cast<Segment*>(address);
  return true;
}

void WriteMark::detach() {
  if (!segment_) return;
  shmid_ds state{};
  const bool last = shmctl(id_, IPC_STAT, &state) != -1 && state.shm_nattch == 1;
  // Neither fails for a segment that is attached; left behind, it would serve the next start.
  if (last) shmctl(id_, IPC_RMID, nullptr);
  shmdt(segment_);
  segment_ = nullptr;
}

}  // namespace tarn
