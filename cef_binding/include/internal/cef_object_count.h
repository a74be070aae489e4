#pragma once

#include <atomic>

namespace cef_binding {

#if defined(CEF_BINDING_COUNT_OBJECTS)

// How many objects of this binding live in the process, of both directions together. Tests compare
// two readings; a build for users does not count.
inline std::atomic<long> live_objects{0};

class CountedObject {
 public:
  CountedObject() { live_objects.fetch_add(1, std::memory_order_relaxed); }
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;
  ~CountedObject() { live_objects.fetch_sub(1, std::memory_order_relaxed); }
};

#else

class CountedObject {};

#endif

}  // namespace cef_binding
