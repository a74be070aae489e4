#pragma once

#include <utility>

#include "include/cef_base.h"
#include "include/internal/cef_object_count.h"
#include "include/internal/cef_rejected.h"

namespace cef_binding {

// Base of CefV8Value, CefBrowser and the other classes over an object of the library. Derived
// classes add one method for each slot that they call.
//
// Owns exactly one reference to the library's object, from construction to its own last Release().
// Copying a CefRefPtr does not call the library.
template <class Struct>
class LibraryObject : public CefBaseRefCounted, private CountedObject {
 public:
  using StructType = Struct;

  // Takes over one reference to `object`, which must not be null. Callers use Adopt().
  explicit LibraryObject(Struct* object) : object_(object) {}
  LibraryObject(const LibraryObject&) = delete;
  LibraryObject& operator=(const LibraryObject&) = delete;

  void AddRef() const final { count_.AddRef(); }
  bool Release() const final {
    if (!count_.Release()) return false;
    delete this;
    return true;
  }
  bool HasOneRef() const final { return count_.HasOneRef(); }

  // Returns the library's object with a new reference, which the caller takes over.
  Struct* NewReference() const {
    object_->base.add_ref(&object_->base);
    return object_;
  }

 protected:
  ~LibraryObject() override { object_->base.release(&object_->base); }

  // Calls a slot of the library's object.
  template <class Result, class... Parameters, class... Arguments>
  Result Call(Result (*Struct::*slot)(Struct*, Parameters...), Arguments&&... arguments) const {
    return (object_->*slot)(object_, std::forward<Arguments>(arguments)...);
  }

 private:
  Struct* const object_;
  CefRefCount count_;
};

// Wraps a pointer that the library returned or passed, and takes over its reference. Returns null
// for null, which the library provides when a page is partly gone.
template <class Class>
CefRefPtr<Class> Adopt(typename Class::StructType* object) {
  return object ? CefRefPtr<Class>(new Class(object)) : CefRefPtr<Class>();
}

// Returns a pointer to pass to the library, with a new reference that the callee takes over.
// Returns null for null.
template <class Class>
typename Class::StructType* Pass(const CefRefPtr<Class>& object) {
  return object ? object->NewReference() : nullptr;
}

// Takes over a string that the library returned.
inline CefString TakeString(cef_string_userfree_t text) {
  CefString result;
  result.AttachToUserFree(text);
  return result;
}

}  // namespace cef_binding
