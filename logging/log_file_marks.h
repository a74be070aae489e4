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
  // False, too, when they are in use for another file, whose key is the same by chance.
  bool attach(const std::string& path, int projectId);
  // The last one removes them, unless one is set: that is for the next start. One that attaches in
  // the same moment may be left with marks that nobody else sees.
  void detach();

  bool attached() const { return segment_ != nullptr; }

  // Whether a write is under way: when its writer died in it, the file may end in the middle of a
  // line.
  bool writing() const { return Get(&Segment::writing) != 0; }
  void setWriting(bool writing) { Set(&Segment::writing, writing ? 1 : 0); }

  // A copy of the file is complete: once it has its name the file is emptied.
  struct Copy {
    std::uint64_t size = 0;  // in bytes, also of the file; 0 when nothing is to be done
    std::uint64_t inode = 0;
  };
  Copy emptying() const { return {Get(&Segment::emptying), Get(&Segment::copy)}; }
  void setEmptying(const Copy& copy) {
    Set(&Segment::copy, copy.inode);
    Set(&Segment::emptying, copy.size);
  }

  // Whether the file was rotated and nobody wrote its header yet.
  bool headerDue() const { return Get(&Segment::header_due) != 0; }
  void setHeaderDue(bool due) { Set(&Segment::header_due, due ? 1 : 0); }

 private:
  using Word = std::atomic<std::uint64_t>;
  // Of a size that nobody else's segment is likely to have, should the keys collide.
  struct Segment {
    Word writing;
    Word emptying;
    Word copy;
    Word header_due;
    Word file;  // the inode of the file that the marks are of
    Word device;
    Word unused;
  };
  static_assert(Word::is_always_lock_free);

  std::uint64_t Get(Word Segment::*word) const {
    return segment_ ? (segment_->*word).load(std::memory_order_relaxed) : 0;
  }
  void Set(Word Segment::*word, std::uint64_t value) {
    if (segment_) (segment_->*word).store(value, std::memory_order_relaxed);
  }
  bool Claim(const std::string& path);

  int id_ = -1;
  Segment* segment_ = nullptr;
};

}  // namespace tarn
