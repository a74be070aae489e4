#pragma once

#include "include/cef_browser.h"

// Sends a message with the elements of `list` to the pages of a browser; a null list is an empty
// one. Returns false when CEF does not take the message. `name` must not be empty.
bool SendToPages(const CefRefPtr<CefBrowser>& browser, const CefString& name,
                 const CefRefPtr<CefListValue>& list);
