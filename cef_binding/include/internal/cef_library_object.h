#pragma once

#include <utility>

#include "include/cef_base.h"
#include "include/internal/cef_object_count.h"
#include "include/internal/cef_rejected.h"

namespace cef_binding {

// An object of the library as our code uses it: CefV8Value, CefBrowser and so on derive from this
// and add one line for each slot that they call.
//
// It owns exactly one reference of the library's object, from construction to the last Release()
// on our side; copying a CefRefPtr costs nothing in the library.
template <class Struct>
class LibraryObject : public CefBaseRefCounted, private CountedObject {
 public:
  using StructType = Struct;

  // Takes over the one reference that came with `object`, which is not null. Use Adopt().
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

  // The library's object with a reference of its own, for whoever takes one over.
  Struct* NewReference() const {
    object_->base.add_ref(&object_->base);
    return object_;
  }

 protected:
  ~LibraryObject() override { object_->base.release(&object_->base); }

  // Calls one slot of the library's object.
  template <class Result, class... Parameters, class... Arguments>
  Result Call(Result (*Struct::*slot)(Struct*, Parameters...), Arguments&&... arguments) const {
    return (object_->*slot)(object_, std::forward<Arguments>(arguments)...);
  }

 private:
  Struct* const object_;
  CefRefCount count_;
};

// Wraps a pointer that the library returned or passed; its one reference becomes ours. Null stays
// null: the library hands out null where a page is half gone.
template <class Class>
CefRefPtr<Class> Adopt(typename Class::StructType* object) {
  return object ? CefRefPtr<Class>(new Class(object)) : CefRefPtr<Class>();
}

// A pointer to pass to the library, with the reference that the callee takes over.
template <class Class>
typename Class::StructType* Pass(const CefRefPtr<Class>& object) {
  return object ? object->NewReference() : nullptr;
}

// A string that the library returned for us to free.
inline CefString TakeString(cef_string_userfree_t text) {
  CefString result;
  result.AttachToUserFree(text);
  return result;
}

}  // namespace cef_binding
