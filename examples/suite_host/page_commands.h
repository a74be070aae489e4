#pragma once

#include <string>

#include "include/cef_browser.h"

class SuiteClient;

// Runs the command in a page's message. Only names that begin with "host." are commands; other
// messages have no effect.
//
//   host.send [name, list]             sends a message back to the same browser
//   host.sendKinds [name]              sends a list with an element of each type
//   host.resend [browser, name, list]  sends a message to another browser
//   host.load [url], host.back, host.forward, host.reload
//   host.open [url]                    opens another browser
//   host.quit [code]
//
// `list` is optional. A command that is unknown or fails prints an error event, and the page
// receives the message host.error [command, text]. `arguments` must not be null.
void RunPageCommand(SuiteClient& client, const CefRefPtr<CefBrowser>& browser,
                    const std::string& name, const CefRefPtr<CefListValue>& arguments);
