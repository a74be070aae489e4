#pragma once

namespace TarnUtils {

// Facts about the running process. Any thread may call them.
class ProcessUtils {
 public:
  // The memory that this process dirtied and still needs, in bytes: neither its resident size nor
  // its footprint. False, with 0 bytes, when the system does not tell or the figure is 0.
  static bool GetProcessRunningMemory(unsigned long long& bytes);
};

}  // namespace TarnUtils
