#pragma once

#include <functional>

// Errors, as in errno, for the calls of this program; 0 stands for normal calls. Calls that take a
// path fail if the path contains the text.
struct SystemFaults {
  int read = 0;
  int pread = 0;
  int ftruncate = 0;
  int link = 0;
  int unlink = 0;
  int lstat = 0;
  int shmat = 0;
  const char* path = "";
  // Called once, after the next opening of a stream or truncation of a descriptor.
  std::function<void()> after_open;
  std::function<void()> after_ftruncate;
};

extern SystemFaults g_faults;
