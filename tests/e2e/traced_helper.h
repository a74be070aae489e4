#pragma once

#include <string>

// Writes an executable script to `folder` that becomes the helper, and returns the script's path. A
// tracer records in `folder`/PID.trace how the helper with the identifier PID, and each process
// that it forks, exits. Chromium does not report the exit status of a child process to the browser.
std::string WriteTracedHelper(const std::string& folder);
