#pragma once

#include <atomic>

namespace cef_binding {

#if defined(CEF_BINDING_COUNT_OBJECTS)

// Counts the live objects of this binding in the process: those that wrap the library's objects,
// and those that the library calls. Tests compare two readings; builds for users do not count.
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
