#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "logging/log_file.h"

namespace tarn {

// The state that the processes that write one file record about it, so that the next one can finish
// what one that died has begun. The words are in System V shared memory with the key of the file's
// lock: to change one costs no system call. Where there is no shared memory, they are in this
// object.
//
// Words may be read and changed by the holder of the lock of the file alone.
class RecoveryState {
 public:
  RecoveryState() = default;
  RecoveryState(const RecoveryState&) = delete;
  RecoveryState& operator=(const RecoveryState&) = delete;
  // Like Detach().
  ~RecoveryState();

  // Uses the words of an open file from now on, and creates them if they are missing. The words of
  // another file do not change. False when the words are not shared: there is no memory, its key is
  // in use for another file by chance, or the path leads to another file.
  bool Attach(const LogFileLock::Scope& lock, const LogFile& file);

  // Leaves the shared words, and removes them when no process uses them and none is set: a set one
  // is for the next start. Needs no lock. A process that attaches in this moment can be left with
  // words that nobody shares.
  void Detach();

  // Returns whether the words are those of the file, shared or not.
  bool IsOf(const FileIdentity& file) const {
    return Get(&Words::inode) == file.inode &&
           Get(&Words::device) == static_cast<std::uint64_t>(file.device);
  }
  bool is_shared() const { return words_ != &own_; }

  // A write has begun and not ended: the file may end in the middle of a line.
  bool writing() const { return Get(&Words::writing) != 0; }
  void SetWriting(const LogFileLock::Scope& /*lock*/, bool on) { Set(&Words::writing, on); }

  // Returns whether a line of another process may be torn. Without shared words that is unknown.
  bool may_be_torn() const { return writing() || !is_shared(); }

  // A rotation has begun and not ended: its unfinished copy may be there.
  bool rotating() const { return Get(&Words::rotating) != 0; }
  void SetRotating(const LogFileLock::Scope& /*lock*/, bool on) { Set(&Words::rotating, on); }

  // The file was rotated, and its header is not written yet.
  bool header_due() const { return Get(&Words::header_due) != 0; }
  void SetHeaderDue(const LogFileLock::Scope& /*lock*/, bool on) { Set(&Words::header_due, on); }

 private:
  using Word = std::atomic<std::uint64_t>;
  // The size is one that no other program's segment is likely to have, should the keys collide.
  struct Words {
    Word writing{0};
    Word rotating{0};
    Word header_due{0};
    Word inode{0};  // of the file that the words are about
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
