#pragma once

#include "include/internal/cef_string.h"
#include "include/internal/cef_types.h"

// C++ classes for the plain structs of the C layer. All members but `size` are initially 0, which
// selects the library's defaults. Destructors free the strings.

class CefMainArgs : public cef_main_args_t {
 public:
  // `argv` is borrowed and must outlive the object.
  CefMainArgs(int argc_in, char** argv_in) : cef_main_args_t{argc_in, argv_in} {}
};

class CefRect : public cef_rect_t {
 public:
  CefRect() : cef_rect_t{} {}
  CefRect(const cef_rect_t& rect) : cef_rect_t(rect) {}
  CefRect(int x_in, int y_in, int width_in, int height_in)
      : cef_rect_t{x_in, y_in, width_in, height_in} {}
};

class CefWindowInfo : public cef_window_info_t {
 public:
  CefWindowInfo() : cef_window_info_t{} {}
  CefWindowInfo(const cef_window_info_t& info) : cef_window_info_t(info) {}
};

typedef cef_popup_features_t CefPopupFeatures;

class CefSettings : public cef_settings_t {
 public:
  CefSettings() : cef_settings_t{} { size = sizeof(cef_settings_t); }
  ~CefSettings();
  CefSettings(const CefSettings&) = delete;
  CefSettings& operator=(const CefSettings&) = delete;
};

class CefBrowserSettings : public cef_browser_settings_t {
 public:
  CefBrowserSettings() : cef_browser_settings_t{} { size = sizeof(cef_browser_settings_t); }
  ~CefBrowserSettings();
  CefBrowserSettings(const CefBrowserSettings&) = delete;
  CefBrowserSettings& operator=(const CefBrowserSettings&) = delete;
};
