#include <cstdio>
#include <cstdlib>

#include "bench/logging/contender.h"
#include "bench/logging/worker.h"

// Measures one contender once, with an existing empty file, and prints its cost.

int main(int argc, char** argv) {
  Work work;
  std::unique_ptr<Contender> contender;
  if (argc == 6) {
    contender = MakeContender(argv[1]);
    work.processes = std::atoi(argv[2]);  // NOLINT(cert-err34-c): 0 is refused below
    work.threads = std::atoi(argv[3]);    // NOLINT(cert-err34-c)
    work.lines = std::strtol(argv[4], nullptr, 10);
    work.path = argv[5];
  }
  if (!contender || work.processes < 1 || work.threads < 1 || work.lines < 1) {
    std::fputs("usage: PROGRAM CONTENDER PROCESSES THREADS LINES-OF-A-THREAD FILE\n", stderr);
    return 2;
  }
  Cost cost;
  const bool good = contender->Prepare(work.path) && Measure(*contender, work, cost);
  contender->CleanUp();
  if (!good) return EXIT_FAILURE;
  std::printf("{\"count\": %ld, \"milliseconds\": %.3f, \"processorMilliseconds\": %.3f}\n",
              work.lines * work.processes * work.threads, cost.milliseconds,
              cost.processor_milliseconds);
  return EXIT_SUCCESS;
}
