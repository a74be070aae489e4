#pragma once

#include "include/capi/cef_browser_capi.h"

struct _cef_v8value_t;

typedef struct _cef_v8handler_t {
  cef_base_ref_counted_t base;
  int (*execute)(struct _cef_v8handler_t* self, const cef_string_t* name,
                 struct _cef_v8value_t* object, std::size_t arguments_count,
                 struct _cef_v8value_t* const* arguments, struct _cef_v8value_t** retval,
                 cef_string_t* exception);
} cef_v8handler_t;
CEF_ASSERT_SLOTS(cef_v8handler_t, 1);

typedef struct _cef_v8context_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t get_task_runner;
  cef_unbound_slot_t is_valid;
  cef_browser_t* (*get_browser)(struct _cef_v8context_t* self);
  cef_unbound_slot_t get_frame;
  cef_unbound_slot_t get_global;
  int (*enter)(struct _cef_v8context_t* self);
  int (*exit)(struct _cef_v8context_t* self);
  int (*is_same)(struct _cef_v8context_t* self, struct _cef_v8context_t* that);
  cef_unbound_slot_t eval;
} cef_v8context_t;
CEF_ASSERT_SLOTS(cef_v8context_t, 9);

typedef struct _cef_v8value_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t is_valid;
  cef_unbound_slot_t is_undefined;
  cef_unbound_slot_t is_null;
  int (*is_bool)(struct _cef_v8value_t* self);
  int (*is_int)(struct _cef_v8value_t* self);
  cef_unbound_slot_t is_uint;
  int (*is_double)(struct _cef_v8value_t* self);
  cef_unbound_slot_t is_date;
  int (*is_string)(struct _cef_v8value_t* self);
  cef_unbound_slot_t is_object;
  int (*is_array)(struct _cef_v8value_t* self);
  int (*is_function)(struct _cef_v8value_t* self);
  cef_unbound_slot_t is_same;
  int (*get_bool_value)(struct _cef_v8value_t* self);
  int32 (*get_int_value)(struct _cef_v8value_t* self);
  cef_unbound_slot_t get_uint_value;
  double (*get_double_value)(struct _cef_v8value_t* self);
  cef_unbound_slot_t get_date_value;
  cef_string_userfree_t (*get_string_value)(struct _cef_v8value_t* self);
  cef_unbound_slot_t is_user_created;
  cef_unbound_slot_t has_exception;
  cef_unbound_slot_t get_exception;
  cef_unbound_slot_t clear_exception;
  cef_unbound_slot_t will_rethrow_exceptions;
  cef_unbound_slot_t set_rethrow_exceptions;
  cef_unbound_slot_t has_value_bykey;
  cef_unbound_slot_t has_value_byindex;
  cef_unbound_slot_t delete_value_bykey;
  cef_unbound_slot_t delete_value_byindex;
  struct _cef_v8value_t* (*get_value_bykey)(struct _cef_v8value_t* self, const cef_string_t* key);
  struct _cef_v8value_t* (*get_value_byindex)(struct _cef_v8value_t* self, int index);
  int (*set_value_bykey)(struct _cef_v8value_t* self, const cef_string_t* key,
                         struct _cef_v8value_t* value, cef_v8_propertyattribute_t attribute);
  int (*set_value_byindex)(struct _cef_v8value_t* self, int index, struct _cef_v8value_t* value);
  cef_unbound_slot_t set_value_byaccessor;
  cef_unbound_slot_t get_keys;
  cef_unbound_slot_t set_user_data;
  cef_unbound_slot_t get_user_data;
  cef_unbound_slot_t get_externally_allocated_memory;
  cef_unbound_slot_t adjust_externally_allocated_memory;
  int (*get_array_length)(struct _cef_v8value_t* self);
  cef_unbound_slot_t get_function_name;
  cef_unbound_slot_t get_function_handler;
  cef_unbound_slot_t execute_function;
  struct _cef_v8value_t* (*execute_function_with_context)(struct _cef_v8value_t* self,
                                                          cef_v8context_t* context,
                                                          struct _cef_v8value_t* object,
                                                          std::size_t arguments_count,
                                                          struct _cef_v8value_t* const* arguments);
} cef_v8value_t;
CEF_ASSERT_SLOTS(cef_v8value_t, 44);

extern "C" {
int cef_register_extension(const cef_string_t* extension_name, const cef_string_t* javascript_code,
                           cef_v8handler_t* handler);
cef_v8context_t* cef_v8context_get_current_context();
cef_v8value_t* cef_v8value_create_null();
cef_v8value_t* cef_v8value_create_bool(int value);
cef_v8value_t* cef_v8value_create_int(int32 value);
cef_v8value_t* cef_v8value_create_double(double value);
cef_v8value_t* cef_v8value_create_string(const cef_string_t* value);
cef_v8value_t* cef_v8value_create_array(int length);
cef_v8value_t* cef_v8value_create_function(const cef_string_t* name, cef_v8handler_t* handler);
}
