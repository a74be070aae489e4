#pragma once

#include <optional>
#include <string>

#include "include/cef_values.h"

// The events of the example browser: one JSON object per line on standard output, flushed at once.
// Main thread only.

// `status`: of HTTP, 0 for a file; a negative network error of Chromium when the load failed.
void PrintLoad(int browser, const std::string& url, int status);
void PrintMessage(int browser, const std::string& name, const CefRefPtr<CefListValue>& arguments);

struct ConsoleMessage {
  std::string text;
  std::optional<cef_log_severity_t> level;
  std::string file;  // URL of the script; empty: unknown
  int line = 0;      // in that file, from 1
};
void PrintConsole(int browser, const ConsoleMessage& message);

// `status`: 0 ended abnormally, 1 killed, 2 crashed.
void PrintGone(int browser, int status);
// `text`: a command or a line of input that could not be carried out, and what was expected.
void PrintError(const std::string& text);
// `url`: the address at which DevTools answer.
void PrintDevtools(const std::string& url);
// `file`: a picture that is complete, as the command named it.
void PrintScreenshot(int browser, const std::string& file);
void PrintQuit(int code);
