#pragma once

#include <string>

#include "examples/suite_host/options.h"

// Paths of the installed files that a run needs.
struct Installation {
  std::string cef_folder;  // absolute path of the folder with CEF's resources
  std::string helper;      // absolute path of the executable for child processes
};

// Fills `installation` for this executable. Returns false, with one line in `error`, when a file is
// missing or unreadable; the line names the file and its expected folder. Chromium would end by a
// signal without some of the files. `error` must be empty before the call.
bool FindInstallation(const Options& options, Installation& installation, std::string& error);
