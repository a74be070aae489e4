#pragma once

#include <cstddef>
#include <utility>

// A smart pointer to an object with AddRef() and Release(), or null. It is as thread-safe as a
// plain pointer; the reference count of the object is atomic.
template <class T>
class CefRefPtr {
 public:
  CefRefPtr() = default;
  CefRefPtr(T* object) : object_(object) {  // implicit, as callers of CEF expect
    if (object_) object_->AddRef();
  }
  CefRefPtr(const CefRefPtr& other) : CefRefPtr(other.object_) {}
  CefRefPtr(CefRefPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class U>
  CefRefPtr(const CefRefPtr<U>& other) : CefRefPtr(other.get()) {}
  ~CefRefPtr() {
    if (object_) object_->Release();
  }

  // Adds the new reference before it releases the old one, so self-assignment is safe.
  CefRefPtr& operator=(CefRefPtr other) noexcept {
    swap(other);
    return *this;
  }

  T* get() const { return object_; }
  T& operator*() const { return *object_; }
  T* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  void swap(CefRefPtr& other) noexcept { std::swap(object_, other.object_); }

 private:
  T* object_ = nullptr;
};

template <class T, class U>
bool operator==(const CefRefPtr<T>& left, const CefRefPtr<U>& right) {
  return left.get() == right.get();
}
template <class T, class U>
bool operator!=(const CefRefPtr<T>& left, const CefRefPtr<U>& right) {
  return !(left == right);
}
template <class T>
bool operator==(const CefRefPtr<T>& left, std::nullptr_t) {
  return left.get() == nullptr;
}
template <class T>
bool operator!=(const CefRefPtr<T>& left, std::nullptr_t) {
  return left.get() != nullptr;
}
