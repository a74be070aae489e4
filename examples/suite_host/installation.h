#pragma once

#include <string>

#include "examples/suite_host/options.h"

// The files that a run needs beside the executables and in CEF's folder.
struct Installation {
  std::string cef_folder;  // absolute path of the folder with CEF's resources
  std::string helper;      // absolute path of the executable for child processes
};

// Fills `installation` for this executable. Returns false, with one line in `error` that names the
// missing file and its expected place: Chromium ends by a signal without some of them.
bool FindInstallation(const Options& options, Installation& installation, std::string& error);
