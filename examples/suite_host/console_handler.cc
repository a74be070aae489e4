#include "examples/suite_host/console_handler.h"

#include "examples/suite_host/event_printer.h"

bool ConsoleHandler::OnConsoleMessage(CefRefPtr<CefBrowser> browser, const CefString& message,
                                      const CefString& source, int line) {
  PrintConsole(browser->GetIdentifier(),
               {message.ToString(), std::nullopt, source.ToString(), line});
  return true;
}

bool ConsoleHandler::OnConsoleMessage(CefRefPtr<CefBrowser> browser, cef_log_severity_t level,
                                      const CefString& message, const CefString& source, int line) {
  PrintConsole(browser->GetIdentifier(), {message.ToString(), level, source.ToString(), line});
  return true;
}
