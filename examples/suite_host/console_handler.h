#pragma once

#include "include/cef_display_handler.h"

// Prints console messages of pages. Branches of CEF up to 3239 call the first overload of
// OnConsoleMessage(); branches from 3282 on call the second overload, which has a level. CEF's
// headers declare only one of the two, so neither can have `override`. The overloads have a
// separate class because compilers warn about a missing `override` if another member of the class
// has one. Both overloads return true, which keeps the message out of CEF's log.
class ConsoleHandler : public CefDisplayHandler {
 public:
  // NOLINTBEGIN(modernize-use-override)
  bool OnConsoleMessage(CefRefPtr<CefBrowser> browser, const CefString& message,
                        const CefString& source, int line);
  bool OnConsoleMessage(CefRefPtr<CefBrowser> browser, cef_log_severity_t level,
                        const CefString& message, const CefString& source, int line);
  // NOLINTEND(modernize-use-override)
};
