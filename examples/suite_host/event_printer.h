#pragma once

#include <optional>
#include <string>

#include "include/cef_values.h"

// Print the events of the example browser: one JSON object per line on standard output, flushed at
// once. Main thread only.

// `status` is the HTTP status, 0 for a file, or a negative network error of Chromium when the load
// failed.
void PrintLoad(int browser, const std::string& url, int status);
// A null `arguments` is treated as empty.
void PrintMessage(int browser, const std::string& name, const CefRefPtr<CefListValue>& arguments);

struct ConsoleMessage {
  std::string text;
  std::optional<cef_log_severity_t> level;
  std::string file;  // URL of the script; empty if unknown
  int line = 0;      // in `file`, from 1
};
void PrintConsole(int browser, const ConsoleMessage& message);

// `status` is 0 for a renderer that ended abnormally, 1 for a killed and 2 for a crashed renderer.
void PrintGone(int browser, int status);
// `text` names the command or the line of input that failed, and the input that was expected.
void PrintError(const std::string& text);
// `url` is the address of the DevTools.
void PrintDevtools(const std::string& url);
// `file` is the path of the complete picture, as the command spelled it.
void PrintScreenshot(int browser, const std::string& file);
void PrintQuit(int code);
