#pragma once

#include <cstddef>
#include <cstdint>

// Plain data and enumerations of CEF's C layer (branch 2987, Linux x86-64). The layout is the
// library's, so members must not move. Static assertions check the sizes.

typedef std::int64_t int64;
typedef std::int32_t int32;
typedef std::uint32_t uint32;
typedef char16_t char16;

// UTF-16 text. `dtor` frees `str`; a null `dtor` means that `str` is borrowed.
typedef struct _cef_string_utf16_t {
  char16* str;
  std::size_t length;  // in 16-bit units, without a terminating zero
  void (*dtor)(char16* str);
} cef_string_utf16_t;

typedef struct _cef_string_utf8_t {
  char* str;
  std::size_t length;  // in bytes, without a terminating zero
  void (*dtor)(char* str);
} cef_string_utf8_t;

typedef cef_string_utf16_t cef_string_t;
typedef cef_string_utf16_t* cef_string_userfree_t;
typedef struct _cef_string_list_t* cef_string_list_t;

typedef std::uint32_t cef_color_t;
typedef unsigned long cef_window_handle_t;
#define CefWindowHandle cef_window_handle_t

typedef enum {
  VTYPE_INVALID = 0,
  VTYPE_NULL,
  VTYPE_BOOL,
  VTYPE_INT,
  VTYPE_DOUBLE,
  VTYPE_STRING,
  VTYPE_BINARY,
  VTYPE_DICTIONARY,
  VTYPE_LIST,
} cef_value_type_t;

typedef enum {
  JSON_WRITER_DEFAULT = 0,
} cef_json_writer_options_t;

typedef enum {
  NAVIGATION_LINK_CLICKED = 0,
  NAVIGATION_FORM_SUBMITTED,
  NAVIGATION_BACK_FORWARD,
  NAVIGATION_RELOAD,
  NAVIGATION_FORM_RESUBMITTED,
  NAVIGATION_OTHER,
} cef_navigation_type_t;

typedef enum { V8_PROPERTY_ATTRIBUTE_NONE = 0 } cef_v8_propertyattribute_t;

typedef enum { PID_BROWSER = 0, PID_RENDERER } cef_process_id_t;

typedef enum {
  TID_UI = 0,
  TID_DB,
  TID_FILE,
  TID_FILE_USER_BLOCKING,
  TID_PROCESS_LAUNCHER,
  TID_CACHE,
  TID_IO,
  TID_RENDERER,
} cef_thread_id_t;

typedef enum {
  LOGSEVERITY_DEFAULT = 0,
  LOGSEVERITY_VERBOSE,
  LOGSEVERITY_INFO,
  LOGSEVERITY_WARNING,
  LOGSEVERITY_ERROR,
  LOGSEVERITY_DISABLE = 99,
} cef_log_severity_t;

typedef enum { STATE_DEFAULT = 0, STATE_ENABLED, STATE_DISABLED } cef_state_t;

typedef enum {
  TS_ABNORMAL_TERMINATION = 0,
  TS_PROCESS_WAS_KILLED,
  TS_PROCESS_CRASHED,
} cef_termination_status_t;

typedef enum { PET_VIEW = 0, PET_POPUP } cef_paint_element_type_t;

// Network errors are negative. Only errors that callers name are listed.
typedef enum : int { ERR_NONE = 0, ERR_FAILED = -2, ERR_ABORTED = -3 } cef_errorcode_t;

typedef enum : std::uint32_t { TT_LINK = 0 } cef_transition_type_t;

typedef enum : std::uint32_t { WOD_UNKNOWN = 0 } cef_window_open_disposition_t;

typedef struct _cef_main_args_t {
  int argc;
  char** argv;
} cef_main_args_t;

typedef struct _cef_settings_t {
  std::size_t size;
  int single_process;
  int no_sandbox;
  cef_string_t browser_subprocess_path;
  cef_string_t framework_dir_path;
  int multi_threaded_message_loop;
  int external_message_pump;
  int windowless_rendering_enabled;
  int command_line_args_disabled;
  cef_string_t cache_path;
  cef_string_t user_data_path;
  int persist_session_cookies;
  int persist_user_preferences;
  cef_string_t user_agent;
  cef_string_t product_version;
  cef_string_t locale;
  cef_string_t log_file;
  cef_log_severity_t log_severity;
  cef_string_t javascript_flags;
  cef_string_t resources_dir_path;
  cef_string_t locales_dir_path;
  int pack_loading_disabled;
  int remote_debugging_port;
  int uncaught_exception_stack_size;
  int context_safety_implementation;
  int ignore_certificate_errors;
  int enable_net_security_expiration;
  cef_color_t background_color;
  cef_string_t accept_language_list;
} cef_settings_t;

typedef struct _cef_browser_settings_t {
  std::size_t size;
  int windowless_frame_rate;
  cef_string_t standard_font_family;
  cef_string_t fixed_font_family;
  cef_string_t serif_font_family;
  cef_string_t sans_serif_font_family;
  cef_string_t cursive_font_family;
  cef_string_t fantasy_font_family;
  int default_font_size;
  int default_fixed_font_size;
  int minimum_font_size;
  int minimum_logical_font_size;
  cef_string_t default_encoding;
  cef_state_t remote_fonts;
  cef_state_t javascript;
  cef_state_t javascript_open_windows;
  cef_state_t javascript_close_windows;
  cef_state_t javascript_access_clipboard;
  cef_state_t javascript_dom_paste;
  cef_state_t plugins;
  cef_state_t universal_access_from_file_urls;
  cef_state_t file_access_from_file_urls;
  cef_state_t web_security;
  cef_state_t image_loading;
  cef_state_t image_shrink_standalone_to_fit;
  cef_state_t text_area_resize;
  cef_state_t tab_to_links;
  cef_state_t local_storage;
  cef_state_t databases;
  cef_state_t application_cache;
  cef_state_t webgl;
  cef_color_t background_color;
  cef_string_t accept_language_list;
} cef_browser_settings_t;

typedef struct _cef_window_info_t {
  unsigned int x;
  unsigned int y;
  unsigned int width;
  unsigned int height;
  cef_window_handle_t parent_window;
  int windowless_rendering_enabled;
  int transparent_painting_enabled;
  cef_window_handle_t window;
} cef_window_info_t;

typedef struct _cef_rect_t {
  int x;
  int y;
  int width;
  int height;
} cef_rect_t;

// Features of a window that a page requests. Opaque, because no code here reads them.
typedef struct _cef_popup_features_t cef_popup_features_t;

static_assert(sizeof(cef_string_t) == 24, "layout of the library");
static_assert(sizeof(cef_main_args_t) == 16, "layout of the library");
static_assert(sizeof(cef_settings_t) == 368, "layout of the library");
static_assert(offsetof(cef_settings_t, javascript_flags) == 240, "layout of the library");
static_assert(offsetof(cef_settings_t, accept_language_list) == 344, "layout of the library");
static_assert(sizeof(cef_browser_settings_t) == 304, "layout of the library");
static_assert(offsetof(cef_browser_settings_t, remote_fonts) == 200, "layout of the library");
static_assert(offsetof(cef_browser_settings_t, accept_language_list) == 280,
              "layout of the library");
static_assert(sizeof(cef_window_info_t) == 40, "layout of the library");
static_assert(sizeof(cef_rect_t) == 16, "layout of the library");
