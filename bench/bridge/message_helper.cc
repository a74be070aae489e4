#include "bench/bridge/bench_app_handler.h"

// The part of the product's helper that handles messages, with the page object `bench`.
int main(int argc, char** argv) {
  const CefMainArgs main_arguments(argc, argv);
  const CefRefPtr<BenchAppHandler> application(new BenchAppHandler);
  CefExecuteProcess(main_arguments, application, nullptr);
  return 0;
}
