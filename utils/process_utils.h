#pragma once

namespace TarnUtils {

// Reports facts about the running process. Any thread may call the operations.
class ProcessUtils {
 public:
  // Reports the memory, in bytes, that this process dirtied and still needs, which is neither its
  // resident size nor its footprint. Returns false and sets `bytes` to 0 when the system does not
  // report it or reports 0.
  static bool GetProcessRunningMemory(unsigned long long& bytes);
};

}  // namespace TarnUtils
