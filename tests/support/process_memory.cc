#include "tests/support/process_memory.h"

#include <fstream>

long MemoryFigure(pid_t process, const std::string& name) {
  std::ifstream figures("/proc/" + std::to_string(process) + "/smaps_rollup");
  for (std::string word; figures >> word;) {
    long kilobytes = 0;
    if (word == name + ":" && figures >> kilobytes) return kilobytes;
  }
  return -1;
}
