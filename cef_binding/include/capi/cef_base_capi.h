#pragma once

#include <cstddef>

#include "include/internal/cef_types.h"

// Head of every counted struct. The creator sets `size` to the size of the whole struct.
typedef struct _cef_base_ref_counted_t {
  std::size_t size;
  void (*add_ref)(struct _cef_base_ref_counted_t* self);
  int (*release)(struct _cef_base_ref_counted_t* self);  // 1 when the count became 0
  int (*has_one_ref)(struct _cef_base_ref_counted_t* self);
} cef_base_ref_counted_t;

// A slot that nobody here calls or fills; it keeps its place in the order.
typedef void (*cef_unbound_slot_t)();

// Each struct of the library begins with the base, and has one pointer for each slot.
#define CEF_ASSERT_SLOTS(Struct, count)                                                     \
  static_assert(sizeof(Struct) == sizeof(cef_base_ref_counted_t) + (count) * sizeof(void*), \
                "slots of the library")
