// Tests the layout of the library's plain data on Linux x86-64, and the values of its enumerators.

#include <gtest/gtest.h>
#include <cstddef>

#include "include/cef_base.h"

namespace {

struct FieldPlace {
  const char* name;
  std::size_t expected;
  std::size_t offset;
};

#define FIELD(Struct, member, expected) \
  FieldPlace { #Struct "." #member, expected, offsetof(Struct, member) }

constexpr FieldPlace kFields[] = {
    FIELD(cef_main_args_t, argc, 0),
    FIELD(cef_main_args_t, argv, 8),
    FIELD(cef_string_utf16_t, str, 0),
    FIELD(cef_string_utf16_t, length, 8),
    FIELD(cef_string_utf16_t, dtor, 16),
    FIELD(cef_string_utf8_t, str, 0),
    FIELD(cef_string_utf8_t, length, 8),
    FIELD(cef_string_utf8_t, dtor, 16),
    FIELD(cef_settings_t, size, 0),
    FIELD(cef_settings_t, single_process, 8),
    FIELD(cef_settings_t, no_sandbox, 12),
    FIELD(cef_settings_t, browser_subprocess_path, 16),
    FIELD(cef_settings_t, framework_dir_path, 40),
    FIELD(cef_settings_t, multi_threaded_message_loop, 64),
    FIELD(cef_settings_t, external_message_pump, 68),
    FIELD(cef_settings_t, windowless_rendering_enabled, 72),
    FIELD(cef_settings_t, command_line_args_disabled, 76),
    FIELD(cef_settings_t, cache_path, 80),
    FIELD(cef_settings_t, user_data_path, 104),
    FIELD(cef_settings_t, persist_session_cookies, 128),
    FIELD(cef_settings_t, persist_user_preferences, 132),
    FIELD(cef_settings_t, user_agent, 136),
    FIELD(cef_settings_t, product_version, 160),
    FIELD(cef_settings_t, locale, 184),
    FIELD(cef_settings_t, log_file, 208),
    FIELD(cef_settings_t, log_severity, 232),
    FIELD(cef_settings_t, javascript_flags, 240),
    FIELD(cef_settings_t, resources_dir_path, 264),
    FIELD(cef_settings_t, locales_dir_path, 288),
    FIELD(cef_settings_t, pack_loading_disabled, 312),
    FIELD(cef_settings_t, remote_debugging_port, 316),
    FIELD(cef_settings_t, uncaught_exception_stack_size, 320),
    FIELD(cef_settings_t, context_safety_implementation, 324),
    FIELD(cef_settings_t, ignore_certificate_errors, 328),
    FIELD(cef_settings_t, enable_net_security_expiration, 332),
    FIELD(cef_settings_t, background_color, 336),
    FIELD(cef_settings_t, accept_language_list, 344),
    FIELD(cef_browser_settings_t, size, 0),
    FIELD(cef_browser_settings_t, windowless_frame_rate, 8),
    FIELD(cef_browser_settings_t, standard_font_family, 16),
    FIELD(cef_browser_settings_t, fixed_font_family, 40),
    FIELD(cef_browser_settings_t, serif_font_family, 64),
    FIELD(cef_browser_settings_t, sans_serif_font_family, 88),
    FIELD(cef_browser_settings_t, cursive_font_family, 112),
    FIELD(cef_browser_settings_t, fantasy_font_family, 136),
    FIELD(cef_browser_settings_t, default_font_size, 160),
    FIELD(cef_browser_settings_t, default_fixed_font_size, 164),
    FIELD(cef_browser_settings_t, minimum_font_size, 168),
    FIELD(cef_browser_settings_t, minimum_logical_font_size, 172),
    FIELD(cef_browser_settings_t, default_encoding, 176),
    FIELD(cef_browser_settings_t, remote_fonts, 200),
    FIELD(cef_browser_settings_t, javascript, 204),
    FIELD(cef_browser_settings_t, javascript_open_windows, 208),
    FIELD(cef_browser_settings_t, javascript_close_windows, 212),
    FIELD(cef_browser_settings_t, javascript_access_clipboard, 216),
    FIELD(cef_browser_settings_t, javascript_dom_paste, 220),
    FIELD(cef_browser_settings_t, plugins, 224),
    FIELD(cef_browser_settings_t, universal_access_from_file_urls, 228),
    FIELD(cef_browser_settings_t, file_access_from_file_urls, 232),
    FIELD(cef_browser_settings_t, web_security, 236),
    FIELD(cef_browser_settings_t, image_loading, 240),
    FIELD(cef_browser_settings_t, image_shrink_standalone_to_fit, 244),
    FIELD(cef_browser_settings_t, text_area_resize, 248),
    FIELD(cef_browser_settings_t, tab_to_links, 252),
    FIELD(cef_browser_settings_t, local_storage, 256),
    FIELD(cef_browser_settings_t, databases, 260),
    FIELD(cef_browser_settings_t, application_cache, 264),
    FIELD(cef_browser_settings_t, webgl, 268),
    FIELD(cef_browser_settings_t, background_color, 272),
    FIELD(cef_browser_settings_t, accept_language_list, 280),
    FIELD(cef_window_info_t, x, 0),
    FIELD(cef_window_info_t, y, 4),
    FIELD(cef_window_info_t, width, 8),
    FIELD(cef_window_info_t, height, 12),
    FIELD(cef_window_info_t, parent_window, 16),
    FIELD(cef_window_info_t, windowless_rendering_enabled, 24),
    FIELD(cef_window_info_t, transparent_painting_enabled, 28),
    FIELD(cef_window_info_t, window, 32),
    FIELD(cef_rect_t, x, 0),
    FIELD(cef_rect_t, y, 4),
    FIELD(cef_rect_t, width, 8),
    FIELD(cef_rect_t, height, 12),
};

TEST(LayoutTest, FieldsHaveExpectedOffsets) {
  for (const FieldPlace& place : kFields)
    EXPECT_EQ(place.offset, place.expected) << place.name;
}

TEST(LayoutTest, StructsHaveExpectedSizes) {
  EXPECT_EQ(sizeof(cef_main_args_t), 16u);
  EXPECT_EQ(sizeof(cef_string_utf16_t), 24u);
  EXPECT_EQ(sizeof(cef_string_utf8_t), 24u);
  EXPECT_EQ(sizeof(cef_settings_t), 368u);
  EXPECT_EQ(sizeof(cef_browser_settings_t), 304u);
  EXPECT_EQ(sizeof(cef_window_info_t), 40u);
  EXPECT_EQ(sizeof(cef_rect_t), 16u);
  EXPECT_EQ(sizeof(char16), 2u);
}

TEST(LayoutTest, SettingsContainSizeAndZeros) {
  const CefSettings settings;
  EXPECT_EQ(settings.size, sizeof(cef_settings_t));
  const CefBrowserSettings browser_settings;
  EXPECT_EQ(browser_settings.size, sizeof(cef_browser_settings_t));
  const auto zeros_after_size = [](const void* settings_bytes, std::size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(settings_bytes);
    for (std::size_t i = sizeof(std::size_t); i < size; ++i) {
      if (bytes[i] != 0) return false;
    }
    return true;
  };
  EXPECT_TRUE(zeros_after_size(static_cast<const cef_settings_t*>(&settings), settings.size));
  EXPECT_TRUE(zeros_after_size(static_cast<const cef_browser_settings_t*>(&browser_settings),
                               browser_settings.size));
}

TEST(LayoutTest, EnumeratorsHaveExpectedValues) {
  EXPECT_EQ(VTYPE_INVALID, 0);
  EXPECT_EQ(VTYPE_NULL, 1);
  EXPECT_EQ(VTYPE_BOOL, 2);
  EXPECT_EQ(VTYPE_INT, 3);
  EXPECT_EQ(VTYPE_DOUBLE, 4);
  EXPECT_EQ(VTYPE_STRING, 5);
  EXPECT_EQ(VTYPE_BINARY, 6);
  EXPECT_EQ(VTYPE_DICTIONARY, 7);
  EXPECT_EQ(VTYPE_LIST, 8);
  EXPECT_EQ(NAVIGATION_LINK_CLICKED, 0);
  EXPECT_EQ(NAVIGATION_FORM_SUBMITTED, 1);
  EXPECT_EQ(NAVIGATION_BACK_FORWARD, 2);
  EXPECT_EQ(NAVIGATION_RELOAD, 3);
  EXPECT_EQ(NAVIGATION_FORM_RESUBMITTED, 4);
  EXPECT_EQ(NAVIGATION_OTHER, 5);
  EXPECT_EQ(PID_BROWSER, 0);
  EXPECT_EQ(PID_RENDERER, 1);
  EXPECT_EQ(TID_UI, 0);
  EXPECT_EQ(TID_IO, 6);
  EXPECT_EQ(TID_RENDERER, 7);
  EXPECT_EQ(LOGSEVERITY_ERROR, 4);
  EXPECT_EQ(LOGSEVERITY_DISABLE, 99);
  EXPECT_EQ(STATE_DISABLED, 2);
  EXPECT_EQ(TS_PROCESS_CRASHED, 2);
  EXPECT_EQ(PET_POPUP, 1);
}

}  // namespace
