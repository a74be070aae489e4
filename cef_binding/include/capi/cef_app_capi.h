#pragma once

#include "include/capi/cef_v8_capi.h"

typedef struct _cef_command_line_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t is_valid;
  cef_unbound_slot_t is_read_only;
  cef_unbound_slot_t copy;
  cef_unbound_slot_t init_from_argv;
  cef_unbound_slot_t init_from_string;
  cef_unbound_slot_t reset;
  cef_unbound_slot_t get_argv;
  cef_unbound_slot_t get_command_line_string;
  cef_unbound_slot_t get_program;
  cef_unbound_slot_t set_program;
  cef_unbound_slot_t has_switches;
  int (*has_switch)(struct _cef_command_line_t* self, const cef_string_t* name);
  cef_string_userfree_t (*get_switch_value)(struct _cef_command_line_t* self,
                                            const cef_string_t* name);
  cef_unbound_slot_t get_switches;
  void (*append_switch)(struct _cef_command_line_t* self, const cef_string_t* name);
  void (*append_switch_with_value)(struct _cef_command_line_t* self, const cef_string_t* name,
                                   const cef_string_t* value);
  cef_unbound_slot_t has_arguments;
  cef_unbound_slot_t get_arguments;
  cef_unbound_slot_t append_argument;
  cef_unbound_slot_t prepend_wrapper;
} cef_command_line_t;
CEF_ASSERT_SLOTS(cef_command_line_t, 20);

typedef struct _cef_completion_callback_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t on_complete;
} cef_completion_callback_t;
CEF_ASSERT_SLOTS(cef_completion_callback_t, 1);

typedef struct _cef_cookie_manager_t {
  cef_base_ref_counted_t base;
  void (*set_supported_schemes)(struct _cef_cookie_manager_t* self, cef_string_list_t schemes,
                                cef_completion_callback_t* callback);
  cef_unbound_slot_t visit_all_cookies;
  cef_unbound_slot_t visit_url_cookies;
  cef_unbound_slot_t set_cookie;
  cef_unbound_slot_t delete_cookies;
  cef_unbound_slot_t set_storage_path;
  cef_unbound_slot_t flush_store;
} cef_cookie_manager_t;
CEF_ASSERT_SLOTS(cef_cookie_manager_t, 7);

typedef struct _cef_browser_process_handler_t {
  cef_base_ref_counted_t base;
  void (*on_context_initialized)(struct _cef_browser_process_handler_t* self);
  cef_unbound_slot_t on_before_child_process_launch;
  cef_unbound_slot_t on_render_process_thread_created;
  cef_unbound_slot_t get_print_handler;
  cef_unbound_slot_t on_schedule_message_pump_work;
} cef_browser_process_handler_t;
CEF_ASSERT_SLOTS(cef_browser_process_handler_t, 5);

typedef struct _cef_render_process_handler_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t on_render_thread_created;
  void (*on_web_kit_initialized)(struct _cef_render_process_handler_t* self);
  cef_unbound_slot_t on_browser_created;
  cef_unbound_slot_t on_browser_destroyed;
  cef_unbound_slot_t get_load_handler;
  int (*on_before_navigation)(struct _cef_render_process_handler_t* self, cef_browser_t* browser,
                              cef_frame_t* frame, cef_request_t* request,
                              cef_navigation_type_t navigation_type, int is_redirect);
  cef_unbound_slot_t on_context_created;
  void (*on_context_released)(struct _cef_render_process_handler_t* self, cef_browser_t* browser,
                              cef_frame_t* frame, cef_v8context_t* context);
  cef_unbound_slot_t on_uncaught_exception;
  cef_unbound_slot_t on_focused_node_changed;
  int (*on_process_message_received)(struct _cef_render_process_handler_t* self,
                                     cef_browser_t* browser, cef_process_id_t source_process,
                                     cef_process_message_t* message);
} cef_render_process_handler_t;
CEF_ASSERT_SLOTS(cef_render_process_handler_t, 11);

typedef struct _cef_app_t {
  cef_base_ref_counted_t base;
  void (*on_before_command_line_processing)(struct _cef_app_t* self,
                                            const cef_string_t* process_type,
                                            cef_command_line_t* command_line);
  cef_unbound_slot_t on_register_custom_schemes;
  cef_unbound_slot_t get_resource_bundle_handler;
  cef_browser_process_handler_t* (*get_browser_process_handler)(struct _cef_app_t* self);
  cef_render_process_handler_t* (*get_render_process_handler)(struct _cef_app_t* self);
} cef_app_t;
CEF_ASSERT_SLOTS(cef_app_t, 5);

typedef struct _cef_task_t {
  cef_base_ref_counted_t base;
  void (*execute)(struct _cef_task_t* self);
} cef_task_t;
CEF_ASSERT_SLOTS(cef_task_t, 1);

extern "C" {
const char* cef_api_hash(int entry);  // 0: the platform's hash, 1: the hash of all platforms
int cef_execute_process(const cef_main_args_t* args, cef_app_t* application,
                        void* windows_sandbox_info);
int cef_initialize(const cef_main_args_t* args, const cef_settings_t* settings,
                   cef_app_t* application, void* windows_sandbox_info);
void cef_shutdown();
void cef_run_message_loop();
void cef_quit_message_loop();
cef_cookie_manager_t* cef_cookie_manager_get_global_manager(cef_completion_callback_t* callback);
cef_command_line_t* cef_command_line_create();
cef_command_line_t* cef_command_line_get_global();
int cef_currently_on(cef_thread_id_t thread_id);
int cef_post_task(cef_thread_id_t thread_id, cef_task_t* task);
int cef_post_delayed_task(cef_thread_id_t thread_id, cef_task_t* task, int64 delay_ms);
}
