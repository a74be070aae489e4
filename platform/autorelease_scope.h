#pragma once

namespace platform {

// Collects the objects that the system's frameworks hand out for a while, and releases them at its
// end. Scopes end in the reverse order of their making, on the thread that made them.
class AutoreleaseScope {
 public:
  AutoreleaseScope();
  AutoreleaseScope(const AutoreleaseScope&) = delete;
  AutoreleaseScope& operator=(const AutoreleaseScope&) = delete;
  ~AutoreleaseScope();

 private:
  void* pool_;  // the system's own object, null where there is none
};

}  // namespace platform
