#pragma once

#include <vector>

#include "include/cef_browser.h"

// Off-screen rendering.
class CefRenderHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_paint_element_type_t PaintElementType;
  typedef std::vector<CefRect> RectList;

  // Fills `rect` with the size of the view in pixels; returns true when it did.
  virtual bool GetViewRect(CefRefPtr<CefBrowser> browser, CefRect& rect) = 0;
  // `buffer`: width * height * 4 bytes, BGRA, upper left corner first; valid during the call.
  virtual void OnPaint(CefRefPtr<CefBrowser> browser, PaintElementType type,
                       const RectList& dirtyRects, const void* buffer, int width, int height) = 0;
};
