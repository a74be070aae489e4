// Replaces the C library's allocator, which operator new also uses. The hooks call the real
// functions by their internal names, because a lookup by dlsym() could allocate.

#include <cerrno>
#include <cstddef>
#include <cstdlib>

#include "tests/faults/fault_plan.h"

extern "C" {

void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);

void* malloc(size_t size) noexcept {
  return faults::Fails(faults::Family::kAllocation) ? nullptr : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) noexcept {
  return faults::Fails(faults::Family::kAllocation) ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, size_t size) noexcept {
  return faults::Fails(faults::Family::kAllocation) ? nullptr : __libc_realloc(memory, size);
}

void* aligned_alloc(size_t alignment, size_t size) noexcept {
  return faults::Fails(faults::Family::kAllocation) ? nullptr : __libc_memalign(alignment, size);
}

int posix_memalign(void** memory, size_t alignment, size_t size) noexcept {
  void* const result =
      faults::Fails(faults::Family::kAllocation) ? nullptr : __libc_memalign(alignment, size);
  if (!result) return ENOMEM;
  *memory = result;
  return 0;
}

}  // extern "C"
