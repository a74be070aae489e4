#pragma once

#include <sys/types.h>

namespace platform {

// Lends another user's identity to the process: files are found, made and refused as for that user.
// Only the effective user id changes, neither the groups nor the real user id.
//
// The identity is that of the whole process, so while an object lives, every thread acts under it:
// objects may be nested, but not overlap on several threads.
class EffectiveUser {
 public:
  // Without the right to that identity the process keeps its own.
  explicit EffectiveUser(uid_t user);
  EffectiveUser(const EffectiveUser&) = delete;
  EffectiveUser& operator=(const EffectiveUser&) = delete;
  // Gives the former identity back. A process that cannot get it back would go on with rights and
  // files of the wrong user without anybody noticing: it is ended at once, by std::abort() after a
  // line to standard error.
  ~EffectiveUser();

  // Whether the process has that identity. True also when it had it before.
  bool borrowed() const { return borrowed_; }

 private:
  const uid_t former_;
  const bool borrowed_;
};

}  // namespace platform
