#pragma once

#include "include/cef_browser.h"

// Sends a message with copies of the elements of `list` to the pages of a browser. A null `list` is
// treated as empty; `name` must not be empty. Returns false when CEF rejects the message.
bool SendToPages(const CefRefPtr<CefBrowser>& browser, const CefString& name,
                 const CefRefPtr<CefListValue>& list);
