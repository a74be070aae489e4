#include "include/cef_app.h"

// The smallest possible program for Chromium's child processes, with which the helper is compared.
int main(int argc, char** argv) {
  const CefMainArgs main_arguments(argc, argv);
  CefExecuteProcess(main_arguments, nullptr, nullptr);
  return 0;
}
