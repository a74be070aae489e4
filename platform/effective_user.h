#pragma once

#include <sys/types.h>

namespace platform {

// Gives the process another user's identity for the object's lifetime: files are found, created and
// refused as for that user. Changes only the effective user id; the groups and the real user id
// stay.
//
// The identity belongs to the whole process, so every thread acts under it. Objects may be nested,
// but must not overlap on several threads.
class EffectiveUser {
 public:
  // Takes the identity of `user`. The process keeps its own identity when it may not take that one.
  explicit EffectiveUser(uid_t user);
  EffectiveUser(const EffectiveUser&) = delete;
  EffectiveUser& operator=(const EffectiveUser&) = delete;
  // Restores the former identity. Calls std::abort(), after a line to standard error, when that
  // fails: otherwise the process would continue unnoticed with the wrong user's rights and files.
  ~EffectiveUser();

  // Returns whether the constructor succeeded: the process took the identity of `user`, or already
  // had it.
  bool borrowed() const { return borrowed_; }

 private:
  const uid_t former_;
  const bool borrowed_;
};

}  // namespace platform
