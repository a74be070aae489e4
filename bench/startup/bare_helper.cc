#include "include/cef_app.h"

// The least that a program for Chromium's child processes can be; the helper is compared with it.
int main(int argc, char** argv) {
  const CefMainArgs main_arguments(argc, argv);
  CefExecuteProcess(main_arguments, nullptr, nullptr);
  return 0;
}
