#pragma once

#include <cstddef>

#include "include/internal/cef_types.h"

// First member of every reference-counted struct. The creator sets `size` to the size of the whole
// struct.
typedef struct _cef_base_ref_counted_t {
  std::size_t size;
  void (*add_ref)(struct _cef_base_ref_counted_t* self);
  int (*release)(struct _cef_base_ref_counted_t* self);  // 1 when the count reaches 0
  int (*has_one_ref)(struct _cef_base_ref_counted_t* self);
} cef_base_ref_counted_t;

// Placeholder for a slot that the binding neither calls nor fills. It keeps the other slots in
// their places.
typedef void (*cef_unbound_slot_t)();

// Asserts that a struct of the library consists of its base and one pointer for each slot.
#define CEF_ASSERT_SLOTS(Struct, count)                                                     \
  static_assert(sizeof(Struct) == sizeof(cef_base_ref_counted_t) + (count) * sizeof(void*), \
                "slots of the library")
