#pragma once

#include <atomic>

#include "include/internal/cef_ptr.h"
#include "include/internal/cef_string.h"
#include "include/internal/cef_types.h"
#include "include/internal/cef_types_wrappers.h"

// Base of all reference-counted objects. The three methods are thread-safe.
class CefBaseRefCounted {
 public:
  virtual void AddRef() const = 0;
  // Returns true when this was the last reference. The object is deleted then.
  virtual bool Release() const = 0;
  virtual bool HasOneRef() const = 0;

 protected:
  virtual ~CefBaseRefCounted() = default;
};

// An atomic reference count that starts at 0.
class CefRefCount {
 public:
  void AddRef() const { count_.fetch_add(1, std::memory_order_relaxed); }
  // Returns true when the count reaches 0.
  bool Release() const { return count_.fetch_sub(1, std::memory_order_acq_rel) == 1; }
  bool HasOneRef() const { return count_.load(std::memory_order_acquire) == 1; }

 private:
  mutable std::atomic<int32> count_{0};
};

// Implements the methods of CefBaseRefCounted; the last Release() deletes the object. The macro
// ends with a semicolon, as CEF's own macro does in branches 2987 to 3282.
#define IMPLEMENT_REFCOUNTING(ClassName)                             \
 public:                                                             \
  void AddRef() const override { ref_count_.AddRef(); }              \
  bool Release() const override {                                    \
    if (!ref_count_.Release()) return false;                         \
    delete static_cast<const ClassName*>(this);                      \
    return true;                                                     \
  }                                                                  \
  bool HasOneRef() const override { return ref_count_.HasOneRef(); } \
                                                                     \
 private:                                                            \
  CefRefCount ref_count_;
