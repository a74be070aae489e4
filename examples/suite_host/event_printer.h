#pragma once

#include <string>

#include "include/cef_values.h"

// The events of the example browser: one JSON object per line on standard output, flushed at once.

// `status`: of HTTP, 0 for a file; a negative network error of Chromium when the load failed.
void PrintLoad(int browser, const std::string& url, int status);
void PrintMessage(int browser, const std::string& name, const CefRefPtr<CefListValue>& arguments);
void PrintConsole(int browser, const std::string& text);
// `status`: 0 ended abnormally, 1 killed, 2 crashed.
void PrintGone(int browser, int status);
void PrintQuit(int code);
