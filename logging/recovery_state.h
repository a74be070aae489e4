#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "logging/log_file.h"

namespace tarn {

// Records the state of a file that several processes write, so that the next writer can finish an
// operation that a killed process began. The state consists of words in System V shared memory with
// the key of the file's lock; changing a word needs no system call. Without shared memory, the
// words are in this object.
//
// Only the holder of the lock of the file may read or change the words.
class RecoveryState {
 public:
  RecoveryState() = default;
  RecoveryState(const RecoveryState&) = delete;
  RecoveryState& operator=(const RecoveryState&) = delete;
  // Calls Detach().
  ~RecoveryState();

  // Attaches to the words of an open file and creates missing words. Detaches from the words of a
  // previous file. Words that this object set for the same file without shared memory are kept.
  // Replaces the words of another file with the same key only if no process uses them. Returns
  // false when the words are not shared: there is no shared memory, the key is in use for
  // another file, or the path leads to another file.
  bool Attach(const LogFileLock::Scope& lock, const LogFile& file);

  // Detaches from the shared words. Removes them if no process uses them and no word is set; a set
  // word is for the next start. Does not require the lock. A process that attaches at the same
  // moment may get words that no other process shares.
  void Detach();

  // Returns whether the words, shared or not, belong to the file.
  bool IsOf(const FileIdentity& file) const {
    return Get(&Words::inode) == file.inode &&
           Get(&Words::device) == static_cast<std::uint64_t>(file.device);
  }
  bool is_shared() const { return words_ != &own_; }

  // Returns whether a write has begun and not ended: the file may end in the middle of a line.
  bool writing() const { return Get(&Words::writing) != 0; }
  void SetWriting(const LogFileLock::Scope& /*lock*/, bool on) { Set(&Words::writing, on); }

  // Returns whether a line of another process may be torn. Without shared words that is unknown, so
  // the result is true.
  bool may_be_torn() const { return writing() || !is_shared(); }

  // Returns whether a rotation has begun and not ended: its unfinished copy may exist.
  bool rotating() const { return Get(&Words::rotating) != 0; }
  void SetRotating(const LogFileLock::Scope& /*lock*/, bool on) { Set(&Words::rotating, on); }

  // Returns whether the file was rotated and its header is not written yet.
  bool header_due() const { return Get(&Words::header_due) != 0; }
  void SetHeaderDue(const LogFileLock::Scope& /*lock*/, bool on) { Set(&Words::header_due, on); }

 private:
  using Word = std::atomic<std::uint64_t>;
  // If keys collide, the segment of another program is unlikely to have the same size.
  struct Words {
    Word writing{0};
    Word rotating{0};
    Word header_due{0};
    Word inode{0};  // of the file that the words describe
    Word device{0};
    Word unused[4]{};
  };
  static_assert(Word::is_always_lock_free);

  std::uint64_t Get(Word Words::*word) const {
    return (words_->*word).load(std::memory_order_relaxed);
  }
  void Set(Word Words::*word, std::uint64_t value) {
    (words_->*word).store(value, std::memory_order_relaxed);
  }
  bool IsAnySet() const { return writing() || rotating() || header_due(); }
  void BeginFor(const FileIdentity& file);
  bool Share(const LogFile& file);
  bool UseSegment(const LogFile& file, bool& created);
  bool Claim(const FileIdentity& file);
  void RemoveIfUnused() const;

  int id_ = -1;
  Words own_;
  Words* words_ = &own_;
};

}  // namespace tarn
