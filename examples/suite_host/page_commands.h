#pragma once

#include <string>

#include "include/cef_browser.h"

class SuiteClient;

// Carries out a message of a page whose name begins with "host."; any other name has no effect.
//
//   host.send [name, list]             sends a message back to the same browser
//   host.sendKinds [name]              the same with an element of each kind that a list can hold
//   host.resend [browser, name, list]  to another browser
//   host.load [url], host.back, host.forward, host.reload
//   host.open [url]                    one more browser
//   host.quit [code]
//
// A list may be missing. A command that cannot be carried out prints an error event, and the page
// gets the message host.error [command, text].
void CarryOut(SuiteClient& client, const CefRefPtr<CefBrowser>& browser, const std::string& name,
              const CefRefPtr<CefListValue>& arguments);
