#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace tarn {

// What the processes that write one file tell each other about it, so that the next one can finish
// what one that died in it has begun. They are words of System V shared memory with the key of the
// file's lock, so that to set them costs no system call.
//
// For the holder of that lock, but for detach(). Without the shared memory the marks are never set.
class LogFileMarks {
 public:
  LogFileMarks() = default;
  LogFileMarks(const LogFileMarks&) = delete;
  LogFileMarks& operator=(const LogFileMarks&) = delete;
  // detach()
  ~LogFileMarks();

  // Attaches to the marks of an existing file, created if there are none. True also when attached.
  bool attach(const std::string& path, int projectId);
  // The last one removes them. One that attaches in the same moment may be left with marks that
  // nobody else sees.
  void detach();

  // Whether a write is under way: when its writer died in it, the file may end in the middle of a
  // line.
  bool writing() const { return Get(&Segment::writing) != 0; }
  void setWriting(bool writing) { Set(&Segment::writing, writing ? 1 : 0); }

  // The size, in bytes, of a file that is about to be emptied since its copy is complete; else 0.
  std::uint64_t emptying() const { return Get(&Segment::emptying); }
  void setEmptying(std::uint64_t size) { Set(&Segment::emptying, size); }

  // Whether the file was emptied and nobody wrote its header yet. Setting it fails without the
  // shared memory.
  bool headerDue() const { return Get(&Segment::header_due) != 0; }
  bool setHeaderDue(bool due) { return Set(&Segment::header_due, due ? 1 : 0); }

 private:
  using Word = std::atomic<std::uint64_t>;
  // Of a size that nobody else's segment is likely to have, should the keys collide.
  struct Segment {
    Word writing;
    Word emptying;
    Word header_due;
    Word unused[4];
  };
  static_assert(Word::is_always_lock_free);

  std::uint64_t Get(Word Segment::*word) const {
    return segment_ ? (segment_->*word).load(std::memory_order_relaxed) : 0;
  }
  bool Set(Word Segment::*word, std::uint64_t value) {
    if (segment_) (segment_->*word).store(value, std::memory_order_relaxed);
    return segment_ != nullptr;
  }

  int id_ = -1;
  Segment* segment_ = nullptr;
};

}  // namespace tarn
