#pragma once

#include <string>

class Contender;

struct Work {
  int processes = 1;
  int threads = 1;  // of each process
  long lines = 0;   // of each thread
  std::string path;
};

struct Cost {
  double milliseconds = 0;            // from the first worker's start to the last one's end
  double processor_milliseconds = 0;  // user and system time of all workers
};

// Lets all workers log at the same time; measures only that. False when one of them failed, after a
// message on standard error.
bool Measure(Contender& contender, const Work& work, Cost& cost);
