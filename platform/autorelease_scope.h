#pragma once

namespace platform {

// Begins to collect the objects that the system's frameworks hand out for a while. Returns the
// system's own object for it, null on a system where nothing hands out such objects.
void* PushAutoreleasePool();

// Releases what was collected. `pool` is the youngest one of this thread.
void PopAutoreleasePool(void* pool);

// Collects while it lives. Scopes end in the reverse order of their making, on the thread that made
// them.
class AutoreleaseScope {
 public:
  AutoreleaseScope() : pool_(PushAutoreleasePool()) {}
  AutoreleaseScope(const AutoreleaseScope&) = delete;
  AutoreleaseScope& operator=(const AutoreleaseScope&) = delete;
  ~AutoreleaseScope() { PopAutoreleasePool(pool_); }

 private:
  void* const pool_;
};

}  // namespace platform
