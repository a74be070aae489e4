#pragma once

#include "include/capi/cef_base_capi.h"

typedef struct _cef_binary_value_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t is_valid;
  cef_unbound_slot_t is_owned;
  cef_unbound_slot_t is_same;
  cef_unbound_slot_t is_equal;
  cef_unbound_slot_t copy;
  cef_unbound_slot_t get_size;
  cef_unbound_slot_t get_data;
} cef_binary_value_t;
CEF_ASSERT_SLOTS(cef_binary_value_t, 7);

typedef struct _cef_dictionary_value_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t is_valid;
  cef_unbound_slot_t is_owned;
  cef_unbound_slot_t is_read_only;
  cef_unbound_slot_t is_same;
  cef_unbound_slot_t is_equal;
  cef_unbound_slot_t copy;
  cef_unbound_slot_t get_size;
  cef_unbound_slot_t clear;
  cef_unbound_slot_t has_key;
  cef_unbound_slot_t get_keys;
  cef_unbound_slot_t remove;
  cef_unbound_slot_t get_type;
  cef_unbound_slot_t get_value;
  cef_unbound_slot_t get_bool;
  cef_unbound_slot_t get_int;
  cef_unbound_slot_t get_double;
  cef_unbound_slot_t get_string;
  cef_unbound_slot_t get_binary;
  cef_unbound_slot_t get_dictionary;
  cef_unbound_slot_t get_list;
  cef_unbound_slot_t set_value;
  cef_unbound_slot_t set_null;
  cef_unbound_slot_t set_bool;
  int (*set_int)(struct _cef_dictionary_value_t* self, const cef_string_t* key, int value);
  cef_unbound_slot_t set_double;
  cef_unbound_slot_t set_string;
  cef_unbound_slot_t set_binary;
  cef_unbound_slot_t set_dictionary;
  cef_unbound_slot_t set_list;
} cef_dictionary_value_t;
CEF_ASSERT_SLOTS(cef_dictionary_value_t, 29);

typedef struct _cef_value_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t slots[21];
  int (*set_list)(struct _cef_value_t* self, struct _cef_list_value_t* value);
} cef_value_t;
CEF_ASSERT_SLOTS(cef_value_t, 22);

typedef struct _cef_list_value_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t is_valid;
  cef_unbound_slot_t is_owned;
  cef_unbound_slot_t is_read_only;
  cef_unbound_slot_t is_same;
  cef_unbound_slot_t is_equal;
  cef_unbound_slot_t copy;
  int (*set_size)(struct _cef_list_value_t* self, std::size_t size);
  std::size_t (*get_size)(struct _cef_list_value_t* self);
  cef_unbound_slot_t clear;
  cef_unbound_slot_t remove;
  cef_value_type_t (*get_type)(struct _cef_list_value_t* self, std::size_t index);
  cef_value_t* (*get_value)(struct _cef_list_value_t* self, std::size_t index);
  int (*get_bool)(struct _cef_list_value_t* self, std::size_t index);
  int (*get_int)(struct _cef_list_value_t* self, std::size_t index);
  double (*get_double)(struct _cef_list_value_t* self, std::size_t index);
  cef_string_userfree_t (*get_string)(struct _cef_list_value_t* self, std::size_t index);
  cef_unbound_slot_t get_binary;
  cef_unbound_slot_t get_dictionary;
  struct _cef_list_value_t* (*get_list)(struct _cef_list_value_t* self, std::size_t index);
  int (*set_value)(struct _cef_list_value_t* self, std::size_t index, cef_value_t* value);
  int (*set_null)(struct _cef_list_value_t* self, std::size_t index);
  int (*set_bool)(struct _cef_list_value_t* self, std::size_t index, int value);
  int (*set_int)(struct _cef_list_value_t* self, std::size_t index, int value);
  int (*set_double)(struct _cef_list_value_t* self, std::size_t index, double value);
  int (*set_string)(struct _cef_list_value_t* self, std::size_t index, const cef_string_t* value);
  int (*set_binary)(struct _cef_list_value_t* self, std::size_t index, cef_binary_value_t* value);
  int (*set_dictionary)(struct _cef_list_value_t* self, std::size_t index,
                        cef_dictionary_value_t* value);
  int (*set_list)(struct _cef_list_value_t* self, std::size_t index,
                  struct _cef_list_value_t* value);
} cef_list_value_t;
CEF_ASSERT_SLOTS(cef_list_value_t, 28);

extern "C" {
cef_value_t* cef_value_create();
cef_list_value_t* cef_list_value_create();
cef_dictionary_value_t* cef_dictionary_value_create();
cef_binary_value_t* cef_binary_value_create(const void* data, std::size_t data_size);
}
