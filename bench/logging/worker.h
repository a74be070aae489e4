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
  double milliseconds = 0;            // from the first worker's start to the last worker's end
  double processor_milliseconds = 0;  // user and system time of all workers
};

// Makes all workers log at the same time, and measures only this. Forks the processes, which call
// Open() and Close(); the caller calls Prepare() and CleanUp(). Returns false, after a message on
// standard error, when a worker fails or there are more than 16 workers.
bool Measure(Contender& contender, const Work& work, Cost& cost);
