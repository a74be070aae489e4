#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace tarn {

// Says, to all processes that write one file, whether a write was begun and not ended: its writer
// died in it, and the file may end in the middle of a line. It is a word of System V shared memory
// with the key of the file's lock, so that to set it costs no system call.
//
// For the holder of that lock, but for detach(). Without the shared memory the object does nothing.
class WriteMark {
 public:
  WriteMark() = default;
  WriteMark(const WriteMark&) = delete;
  WriteMark& operator=(const WriteMark&) = delete;
  // detach()
  ~WriteMark();

  // Attaches to the word of an existing file, created if there is none. True also when attached.
  bool attach(const std::string& path, int projectId);
  // The last one removes it. One that attaches in the same moment may be left with a word that
  // nobody else sees.
  void detach();

  void begin() {
    if (segment_) segment_->writing.store(1, std::memory_order_relaxed);
  }
  void end() {
    if (segment_) segment_->writing.store(0, std::memory_order_relaxed);
  }
  bool interrupted() const {
    return segment_ && segment_->writing.load(std::memory_order_relaxed) != 0;
  }

 private:
  // A size that nobody else's segment is likely to have, should the keys collide.
  struct Segment {
    std::atomic<std::uint32_t> writing;
    std::uint32_t unused[10];
  };
  static_assert(std::atomic<std::uint32_t>::is_always_lock_free);

  int id_ = -1;
  Segment* segment_ = nullptr;
};

}  // namespace tarn
