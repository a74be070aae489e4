#pragma once

#include "include/cef_display_handler.h"

// Prints what pages write to the console. Branches of CEF up to 3239 call the first form of
// OnConsoleMessage, those from 3282 on the second, with a level. CEF's headers declare only one
// of the two, so neither can have `override`. They are in a class of their own because compilers
// warn about a missing `override` if another member of the same class has it. Both return true,
// which keeps the message out of CEF's own log.
class ConsoleHandler : public CefDisplayHandler {
 public:
  // NOLINTBEGIN(modernize-use-override)
  bool OnConsoleMessage(CefRefPtr<CefBrowser> browser, const CefString& message,
                        const CefString& source, int line);
  bool OnConsoleMessage(CefRefPtr<CefBrowser> browser, cef_log_severity_t level,
                        const CefString& message, const CefString& source, int line);
  // NOLINTEND(modernize-use-override)
};
