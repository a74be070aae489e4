#include "platform/process_memory.h"

#include <limits>
#include <sstream>
#include <string>

#include "platform/shared/whole_file.h"

namespace platform {
namespace {

// Far more than the two dozen lines that the kernel writes.
constexpr std::size_t kLargest = 64 << 10;

}  // namespace

bool GetDirtiedMemory(unsigned long long& bytes) {
  std::string text;
  if (!ReadWholeFile("/proc/self/smaps_rollup", kLargest, text)) return false;
  std::istringstream sums(text);
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
