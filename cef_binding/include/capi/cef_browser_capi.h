#pragma once

#include "include/capi/cef_process_message_capi.h"

struct _cef_client_t;
struct _cef_request_context_t;
struct _cef_v8context_t;

typedef struct _cef_request_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t slots[20];
} cef_request_t;
CEF_ASSERT_SLOTS(cef_request_t, 20);

typedef struct _cef_frame_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t is_valid;
  cef_unbound_slot_t undo;
  cef_unbound_slot_t redo;
  cef_unbound_slot_t cut;
  cef_unbound_slot_t copy;
  cef_unbound_slot_t paste;
  cef_unbound_slot_t del;
  cef_unbound_slot_t select_all;
  cef_unbound_slot_t view_source;
  cef_unbound_slot_t get_source;
  cef_unbound_slot_t get_text;
  cef_unbound_slot_t load_request;
  void (*load_url)(struct _cef_frame_t* self, const cef_string_t* url);
  cef_unbound_slot_t load_string;
  cef_unbound_slot_t execute_java_script;
  int (*is_main)(struct _cef_frame_t* self);
  cef_unbound_slot_t is_focused;
  cef_unbound_slot_t get_name;
  cef_unbound_slot_t get_identifier;
  cef_unbound_slot_t get_parent;
  cef_string_userfree_t (*get_url)(struct _cef_frame_t* self);
  cef_unbound_slot_t get_browser;
  cef_unbound_slot_t get_v8context;
  cef_unbound_slot_t visit_dom;
} cef_frame_t;
CEF_ASSERT_SLOTS(cef_frame_t, 24);

typedef struct _cef_browser_host_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t get_browser;
  void (*close_browser)(struct _cef_browser_host_t* self, int force_close);
  cef_unbound_slot_t try_close_browser;
  cef_unbound_slot_t set_focus;
  cef_unbound_slot_t get_window_handle;
  cef_unbound_slot_t get_opener_window_handle;
  cef_unbound_slot_t has_view;
  cef_unbound_slot_t get_client;
  cef_unbound_slot_t get_request_context;
  cef_unbound_slot_t get_zoom_level;
  cef_unbound_slot_t set_zoom_level;
  cef_unbound_slot_t run_file_dialog;
  cef_unbound_slot_t start_download;
  cef_unbound_slot_t download_image;
  cef_unbound_slot_t print;
  cef_unbound_slot_t print_to_pdf;
  cef_unbound_slot_t find;
  cef_unbound_slot_t stop_finding;
  cef_unbound_slot_t show_dev_tools;
  cef_unbound_slot_t close_dev_tools;
  cef_unbound_slot_t has_dev_tools;
  cef_unbound_slot_t get_navigation_entries;
  cef_unbound_slot_t set_mouse_cursor_change_disabled;
  cef_unbound_slot_t is_mouse_cursor_change_disabled;
  cef_unbound_slot_t replace_misspelling;
  cef_unbound_slot_t add_word_to_dictionary;
  int (*is_window_rendering_disabled)(struct _cef_browser_host_t* self);
  void (*was_resized)(struct _cef_browser_host_t* self);
  cef_unbound_slot_t was_hidden;
  cef_unbound_slot_t notify_screen_info_changed;
  void (*invalidate)(struct _cef_browser_host_t* self, cef_paint_element_type_t type);
  cef_unbound_slot_t other_slots[20];
} cef_browser_host_t;
CEF_ASSERT_SLOTS(cef_browser_host_t, 51);

typedef struct _cef_browser_t {
  cef_base_ref_counted_t base;
  cef_browser_host_t* (*get_host)(struct _cef_browser_t* self);
  cef_unbound_slot_t can_go_back;
  void (*go_back)(struct _cef_browser_t* self);
  cef_unbound_slot_t can_go_forward;
  void (*go_forward)(struct _cef_browser_t* self);
  cef_unbound_slot_t is_loading;
  void (*reload)(struct _cef_browser_t* self);
  cef_unbound_slot_t reload_ignore_cache;
  cef_unbound_slot_t stop_load;
  int (*get_identifier)(struct _cef_browser_t* self);
  cef_unbound_slot_t is_same;
  int (*is_popup)(struct _cef_browser_t* self);
  cef_unbound_slot_t has_document;
  cef_frame_t* (*get_main_frame)(struct _cef_browser_t* self);
  cef_unbound_slot_t get_focused_frame;
  cef_unbound_slot_t get_frame_byident;
  cef_unbound_slot_t get_frame;
  cef_unbound_slot_t get_frame_count;
  cef_unbound_slot_t get_frame_identifiers;
  cef_unbound_slot_t get_frame_names;
  int (*send_process_message)(struct _cef_browser_t* self, cef_process_id_t target_process,
                              cef_process_message_t* message);
} cef_browser_t;
CEF_ASSERT_SLOTS(cef_browser_t, 21);

extern "C" int cef_browser_host_create_browser(const cef_window_info_t* window_info,
                                               struct _cef_client_t* client,
                                               const cef_string_t* url,
                                               const cef_browser_settings_t* settings,
                                               struct _cef_request_context_t* request_context);
