#pragma once

#include <atomic>
#include <cstddef>
#include <cstring>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "include/capi/cef_base_capi.h"

// Reference-counted objects of a fake CEF library, so that code on top of the C layer runs in a
// plain test program. Each object counts its references exactly and ends when its count reaches 0.
// The memory of an ended object stays until ForgetObjects(), so that later uses are detected.
namespace fake_cef {

class CountedObject {
 public:
  explicit CountedObject(const char* mangled_type);
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;
  virtual ~CountedObject() = default;

  const std::string& type() const { return type_; }
  int references() const { return references_.load(std::memory_order_acquire); }
  bool ended() const { return ended_.load(std::memory_order_acquire); }

  // Reports misuse if the object has ended.
  void CheckUse(const char* what) const;
  void AddReference();
  // Returns true when the count reaches 0.
  bool ReleaseReference();

 private:
  // Releases the contents of the object. Called once, when the count reaches 0.
  virtual void OnEnd() {}

  const std::string type_;
  std::atomic<int> references_{1};
  std::atomic<bool> ended_{false};
};

// These functions are thread-safe.
void ReportMisuse(const std::string& what);
std::vector<std::string> Misuse();
std::vector<std::string> LiveObjects();            // the types of the objects
std::vector<const CountedObject*> EndedObjects();  // in the order of their ends
// Clears all records and frees the ended objects. Leaks live objects, which still have references.
void ForgetObjects();

// Reports misuse. Fakes store it in the slots that they do not fill.
void UnfilledSlot();

// Base of the fakes. `Class` derives from it and fills the slots of `Struct` that it supports. A
// new object has one reference, which its creator owns.
template <class Class, class Struct>
class FakeObject : public Struct, public CountedObject {
 public:
  using StructType = Struct;

  FakeObject();

  // Returns the fake behind a pointer of the C layer, or null for null. Takes no reference. Reports
  // misuse if the object has ended.
  static Class* From(Struct* object) {
    if (object) static_cast<FakeObject*>(object)->CheckUse("used");
    return static_cast<Class*>(object);
  }
  static Class& Of(Struct* self) { return *From(self); }

 private:
  static FakeObject& OfHead(cef_base_ref_counted_t* head) {
    return *static_cast<FakeObject*>(reinterpret_cast<Struct*>(head));
  }
};

template <class Class, class Struct>
FakeObject<Class, Struct>::FakeObject() : Struct{}, CountedObject(typeid(Struct).name()) {
  const cef_unbound_slot_t unfilled = &UnfilledSlot;
  char* const bytes = reinterpret_cast<char*>(static_cast<Struct*>(this));
  for (std::size_t at = sizeof(cef_base_ref_counted_t); at < sizeof(Struct);
       at += sizeof unfilled) {
    std::memcpy(bytes + at, &unfilled, sizeof unfilled);
  }
  this->base.size = sizeof(Struct);
  this->base.add_ref = [](cef_base_ref_counted_t* head) { OfHead(head).AddReference(); };
  this->base.release = [](cef_base_ref_counted_t* head) {
    return OfHead(head).ReleaseReference() ? 1 : 0;
  };
  this->base.has_one_ref = [](cef_base_ref_counted_t* head) {
    return OfHead(head).references() == 1 ? 1 : 0;
  };
}

// A fake of a struct whose slots do not matter.
template <class Struct>
class PlainObject : public FakeObject<PlainObject<Struct>, Struct> {};

// Owns one reference to a counted struct of the library or of the client, or holds null.
template <class Struct>
class Own {
 public:
  Own() = default;
  Own(std::nullptr_t) {}
  // Takes over one reference to `object`.
  static Own Take(Struct* object) {
    Own taken;
    taken.object_ = object;
    return taken;
  }
  template <class Derived>
  Own(const Own<Derived>& other) : object_(other.Give()) {}
  Own(const Own& other) : object_(other.Give()) {}
  Own(Own&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Own& operator=(Own other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Own() {
    if (object_) object_->base.release(&object_->base);
  }

  // Returns the pointer with a new reference, which the caller takes over.
  Struct* Give() const {
    if (object_) object_->base.add_ref(&object_->base);
    return object_;
  }
  Struct* get() const { return object_; }
  Struct* operator->() const { return object_; }
  Struct& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  Struct* object_ = nullptr;
};

template <class Fake, class... Arguments>
Own<Fake> Make(Arguments&&... arguments) {
  return Own<Fake>::Take(new Fake(std::forward<Arguments>(arguments)...));
}

}  // namespace fake_cef
