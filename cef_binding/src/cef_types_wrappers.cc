#include "include/internal/cef_types_wrappers.h"

#include "include/capi/cef_string_capi.h"

CefSettings::~CefSettings() {
  for (cef_string_t* text :
       {&browser_subprocess_path, &framework_dir_path, &cache_path, &user_data_path, &user_agent,
        &product_version, &locale, &log_file, &javascript_flags, &resources_dir_path,
        &locales_dir_path, &accept_language_list}) {
    cef_string_utf16_clear(text);
  }
}

CefBrowserSettings::~CefBrowserSettings() {
  for (cef_string_t* text :
       {&standard_font_family, &fixed_font_family, &serif_font_family, &sans_serif_font_family,
        &cursive_font_family, &fantasy_font_family, &default_encoding, &accept_language_list}) {
    cef_string_utf16_clear(text);
  }
}
