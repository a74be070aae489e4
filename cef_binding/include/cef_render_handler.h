#pragma once

#include <vector>

#include "include/cef_browser.h"

// Callbacks for off-screen rendering. The application implements them.
class CefRenderHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_paint_element_type_t PaintElementType;
  typedef std::vector<CefRect> RectList;

  // Returns true when `rect` has been set to the size of the view, in pixels.
  virtual bool GetViewRect(CefRefPtr<CefBrowser> browser, CefRect& rect) = 0;
  // `buffer` holds width * height * 4 bytes, BGRA, from the upper left corner on. It is valid
  // during the call.
  virtual void OnPaint(CefRefPtr<CefBrowser> browser, PaintElementType type,
                       const RectList& dirtyRects, const void* buffer, int width, int height) = 0;
};
