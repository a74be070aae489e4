#pragma once

#include "include/capi/cef_values_capi.h"

typedef struct _cef_process_message_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t is_valid;
  cef_unbound_slot_t is_read_only;
  cef_unbound_slot_t copy;
  cef_string_userfree_t (*get_name)(struct _cef_process_message_t* self);
  cef_list_value_t* (*get_argument_list)(struct _cef_process_message_t* self);
} cef_process_message_t;
CEF_ASSERT_SLOTS(cef_process_message_t, 5);

extern "C" cef_process_message_t* cef_process_message_create(const cef_string_t* name);
