#include "platform/process_memory.h"

#include <fstream>
#include <limits>
#include <string>

namespace platform {

bool GetDirtiedMemory(unsigned long long& bytes) {
  std::ifstream sums("/proc/self/smaps_rollup");
  std::string heading;
  std::getline(sums, heading);  // the address range that the sums are of
  unsigned long long anonymous = 0;
  unsigned long long offered_back = 0;
  bool found = false;
  // Lines are "Name:   123 kB".
  for (std::string name; sums >> name;) {
    unsigned long long kilobytes = 0;
    if (!(sums >> kilobytes)) break;
    sums.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    if (name == "Anonymous:") {
      anonymous = kilobytes;
      found = true;
    } else if (name == "LazyFree:") {
      offered_back = kilobytes;
    }
  }
  if (!found) return false;
  bytes = anonymous > offered_back ? (anonymous - offered_back) * 1024 : 0;
  return true;
}

}  // namespace platform
