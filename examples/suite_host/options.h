#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

// The command line of the example browser.
struct Options {
  bool help = false;     // print the help text and do nothing else
  bool version = false;  // print the version and do nothing else
  std::string helper;    // absolute path of the executable for child processes; empty: the default
  std::string page;      // URL of the first page
  std::string screenshot;    // path of the PNG file to write at the end; empty: no picture
  int timeout_seconds = 30;  // 0: no limit
  int width = 800;           // pixels
  int height = 600;
  bool window = false;               // show pages in windows instead of off-screen
  std::optional<int> devtools_port;  // port for remote debugging; 0: any free port
  bool read_input = false;           // carry out commands from standard input
  bool zygote = false;               // fork renderers from one helper instead of executing it
  bool sandbox = false;              // leave Chromium's sandbox on; requires and sets `zygote`
  std::vector<std::pair<std::string, std::string>> switches;  // name and value; `second` may be ""
};

// Fills `options` from the command line. Ignores all arguments after --help or --version. Creates
// the file of --screenshot if it does not exist. Returns false, with one line in `error`, when the
// command line is invalid; `options` may be partly filled then. `error` must be empty before the
// call.
bool ParseOptions(int argc, const char* const* argv, Options& options, std::string& error);

// Returns the text for --help, which ends with a newline.
std::string HelpText();
