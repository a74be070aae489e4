#include "platform/process_memory.h"

#include <limits>
#include <sstream>
#include <string>

#include "platform/shared/whole_file.h"

namespace platform {
namespace {

// The largest accepted size of the kernel's report, in bytes: far more than its two dozen lines.
constexpr std::size_t kMaxSize = 64 << 10;

}  // namespace

bool GetDirtiedMemory(unsigned long long& bytes) {
  std::string text;
  if (!ReadWholeFile("/proc/self/smaps_rollup", kMaxSize, text)) return false;
  std::istringstream sums(text);
  std::string heading;
  std::getline(sums, heading);  // the address range of the sums
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
