#pragma once

namespace platform {

// Starts a pool that collects the objects that the system's frameworks autorelease on the calling
// thread. Returns the system's pool object, or null on a system without autoreleased objects.
void* PushAutoreleasePool();

// Releases `pool` and the objects that it collected. `pool` must be the calling thread's most
// recent pool, or null on a system where PushAutoreleasePool() returns null.
void PopAutoreleasePool(void* pool);

// Collects autoreleased objects for its lifetime. Scopes must end in the reverse order of their
// creation, on the thread that created them.
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
