#include "bench/bridge/bench_app_handler.h"

// The product's helper without what does not concern messages, and with the page object `bench`.
int main(int argc, char** argv) {
  const CefMainArgs main_arguments(argc, argv);
  const CefRefPtr<BenchAppHandler> application(new BenchAppHandler);
  CefExecuteProcess(main_arguments, application, nullptr);
  return 0;
}
