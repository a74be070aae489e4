#include "logging/log_file_marks.h"

#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/stat.h>

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
    if (Claim(path)) return true;
    shmdt(segment_);
    segment_ = nullptr;
    return false;
  }
  return false;
}

// The holder of the lock does this, so nobody else does it meanwhile.
bool LogFileMarks::Claim(const std::string& path) {
  struct stat attributes {};
  shmid_ds state{};
  if (stat(path.c_str(), &attributes) != 0 || shmctl(id_, IPC_STAT, &state) == -1) return false;
  const auto file = static_cast<std::uint64_t>(attributes.st_ino);
  const auto device = static_cast<std::uint64_t>(attributes.st_dev);
  if (Get(&Segment::file) == file && Get(&Segment::device) == device) return true;
  // New, or left over of a file that nobody has open.
  if (state.shm_nattch != 1) return false;
  setWriting(false);
  setEmptying({});
  setHeaderDue(false);
  Set(&Segment::file, file);
  Set(&Segment::device, device);
  return true;
}

void LogFileMarks::detach() {
  if (!segment_) return;
  const bool set = writing() || emptying().size != 0 || headerDue();
  shmdt(segment_);  // fails only for another address
  segment_ = nullptr;
  shmid_ds state{};
  if (set || shmctl(id_, IPC_STAT, &state) == -1 || state.shm_nattch != 0) return;
  // Fails when another process was faster, or the segment is another user's: then it stays for the
  // next start.
  shmctl(id_, IPC_RMID, nullptr);
}

}  // namespace tarn
