#include "utils/process_utils.h"

#include "platform/process_memory.h"

namespace TarnUtils {

bool ProcessUtils::GetProcessRunningMemory(unsigned long long& bytes) {
  bytes = 0;
  return platform::GetDirtiedMemory(bytes) && bytes != 0;
}

}  // namespace TarnUtils
