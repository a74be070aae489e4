#pragma once

#include <string>
#include <utility>
#include <vector>

// What the command line of the example browser asks for.
struct Options {
  std::string helper;      // absolute path of the executable for child processes
  std::string cef_dir;     // absolute path of the folder with CEF's resources
  std::string page;        // URL of the first page
  std::string screenshot;  // path of the PNG file to write at the end; empty: none
  int timeout_seconds = 30;
  int width = 800;  // pixels
  int height = 600;
  bool zygote = false;   // renderers are forked from one helper instead of executed
  bool sandbox = false;  // Chromium's own, set up by the zygote
  std::vector<std::pair<std::string, std::string>> switches;  // name and value, maybe empty
};

// Fills `options` from the command line. Returns false, with one line in `error` that says what is
// wrong, when it is not understood.
bool ParseOptions(int argc, const char* const* argv, Options& options, std::string& error);
