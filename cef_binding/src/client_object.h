#pragma once

#include "include/capi/cef_base_capi.h"
#include "include/cef_base.h"
#include "include/internal/cef_object_count.h"
#include "include/internal/cef_rejected.h"

namespace cef_binding {

// Presents an object of the application to the library, as a struct whose slots call `Interface`.
//
// Each call of Wrap() creates a new struct with its own reference count. The struct holds one
// reference to the application's object until the library releases the struct for the last time.
template <class Interface, class Struct>
class ClientObject : private Struct, private CountedObject {
 public:
  // Returns the struct with one reference, which the receiver takes over; null for null. `fill`
  // sets the slots. The other slots stay null, for which the library uses its default behavior.
  static Struct* Wrap(const CefRefPtr<Interface>& object, void (*fill)(Struct&)) {
    if (!object) return nullptr;
    auto* client = new ClientObject(object);
    fill(*client);
    return client;
  }

  // Returns the object behind a struct of Wrap(). `self` must not be null.
  static Interface& Of(Struct* self) { return *static_cast<ClientObject*>(self)->object_; }

  // Returns the object behind a struct that the library passed back, and releases the reference
  // that came with the struct. Returns null for null.
  static CefRefPtr<Interface> Unwrap(Struct* passed) {
    if (!passed) return nullptr;
    CefRefPtr<Interface> object(&Of(passed));
    passed->base.release(&passed->base);
    return object;
  }

 private:
  explicit ClientObject(const CefRefPtr<Interface>& object) : Struct{}, object_(object) {
    this->base.size = sizeof(Struct);
    this->base.add_ref = AddRef;
    this->base.release = Release;
    this->base.has_one_ref = HasOneRef;
    count_.AddRef();
  }

  static void AddRef(cef_base_ref_counted_t* head) {
    if (Rejected(head)) return;
    Of(head)->count_.AddRef();
  }
  static int Release(cef_base_ref_counted_t* head) {
    if (Rejected(head)) return 0;
    ClientObject* client = Of(head);
    if (!client->count_.Release()) return 0;
    delete client;
    return 1;
  }
  static int HasOneRef(cef_base_ref_counted_t* head) {
    if (Rejected(head)) return 0;
    return Of(head)->count_.HasOneRef() ? 1 : 0;
  }

  // The base is the first member of the struct and has its address.
  static ClientObject* Of(cef_base_ref_counted_t* head) {
    return static_cast<ClientObject*>(reinterpret_cast<Struct*>(head));
  }

  const CefRefPtr<Interface> object_;
  CefRefCount count_;
};

}  // namespace cef_binding
