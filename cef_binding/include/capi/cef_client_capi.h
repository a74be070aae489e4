#pragma once

#include "include/capi/cef_browser_capi.h"

typedef struct _cef_life_span_handler_t {
  cef_base_ref_counted_t base;
  int (*on_before_popup)(struct _cef_life_span_handler_t* self, cef_browser_t* browser,
                         cef_frame_t* frame, const cef_string_t* target_url,
                         const cef_string_t* target_frame_name,
                         cef_window_open_disposition_t target_disposition, int user_gesture,
                         const cef_popup_features_t* popup_features, cef_window_info_t* window_info,
                         struct _cef_client_t** client, cef_browser_settings_t* settings,
                         int* no_javascript_access);
  void (*on_after_created)(struct _cef_life_span_handler_t* self, cef_browser_t* browser);
  cef_unbound_slot_t do_close;
  void (*on_before_close)(struct _cef_life_span_handler_t* self, cef_browser_t* browser);
} cef_life_span_handler_t;
CEF_ASSERT_SLOTS(cef_life_span_handler_t, 4);

typedef struct _cef_load_handler_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t on_loading_state_change;
  cef_unbound_slot_t on_load_start;
  void (*on_load_end)(struct _cef_load_handler_t* self, cef_browser_t* browser, cef_frame_t* frame,
                      int http_status_code);
  void (*on_load_error)(struct _cef_load_handler_t* self, cef_browser_t* browser,
                        cef_frame_t* frame, cef_errorcode_t error_code,
                        const cef_string_t* error_text, const cef_string_t* failed_url);
} cef_load_handler_t;
CEF_ASSERT_SLOTS(cef_load_handler_t, 4);

typedef struct _cef_render_handler_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t get_root_screen_rect;
  int (*get_view_rect)(struct _cef_render_handler_t* self, cef_browser_t* browser,
                       cef_rect_t* rect);
  cef_unbound_slot_t get_screen_point;
  cef_unbound_slot_t get_screen_info;
  cef_unbound_slot_t on_popup_show;
  cef_unbound_slot_t on_popup_size;
  void (*on_paint)(struct _cef_render_handler_t* self, cef_browser_t* browser,
                   cef_paint_element_type_t type, std::size_t dirty_rects_count,
                   const cef_rect_t* dirty_rects, const void* buffer, int width, int height);
  cef_unbound_slot_t on_cursor_change;
  cef_unbound_slot_t start_dragging;
  cef_unbound_slot_t update_drag_cursor;
  cef_unbound_slot_t on_scroll_offset_changed;
  cef_unbound_slot_t on_ime_composition_range_changed;
} cef_render_handler_t;
CEF_ASSERT_SLOTS(cef_render_handler_t, 12);

typedef struct _cef_request_handler_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t earlier_slots[15];
  void (*on_render_process_terminated)(struct _cef_request_handler_t* self, cef_browser_t* browser,
                                       cef_termination_status_t status);
} cef_request_handler_t;
CEF_ASSERT_SLOTS(cef_request_handler_t, 16);

typedef struct _cef_display_handler_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t on_address_change;
  cef_unbound_slot_t on_title_change;
  cef_unbound_slot_t on_favicon_urlchange;
  cef_unbound_slot_t on_fullscreen_mode_change;
  cef_unbound_slot_t on_tooltip;
  cef_unbound_slot_t on_status_message;
  int (*on_console_message)(struct _cef_display_handler_t* self, cef_browser_t* browser,
                            const cef_string_t* message, const cef_string_t* source, int line);
} cef_display_handler_t;
CEF_ASSERT_SLOTS(cef_display_handler_t, 7);

typedef struct _cef_client_t {
  cef_base_ref_counted_t base;
  cef_unbound_slot_t get_context_menu_handler;
  cef_unbound_slot_t get_dialog_handler;
  cef_display_handler_t* (*get_display_handler)(struct _cef_client_t* self);
  cef_unbound_slot_t get_download_handler;
  cef_unbound_slot_t get_drag_handler;
  cef_unbound_slot_t get_find_handler;
  cef_unbound_slot_t get_focus_handler;
  cef_unbound_slot_t get_geolocation_handler;
  cef_unbound_slot_t get_jsdialog_handler;
  cef_unbound_slot_t get_keyboard_handler;
  cef_life_span_handler_t* (*get_life_span_handler)(struct _cef_client_t* self);
  cef_load_handler_t* (*get_load_handler)(struct _cef_client_t* self);
  cef_render_handler_t* (*get_render_handler)(struct _cef_client_t* self);
  cef_request_handler_t* (*get_request_handler)(struct _cef_client_t* self);
  int (*on_process_message_received)(struct _cef_client_t* self, cef_browser_t* browser,
                                     cef_process_id_t source_process,
                                     cef_process_message_t* message);
} cef_client_t;
CEF_ASSERT_SLOTS(cef_client_t, 15);
