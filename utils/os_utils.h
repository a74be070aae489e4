#pragma once

#include <string>

namespace TarnUtils {

// Reports facts about the operating system. Any thread may call the operations.
class OSUtils {
 public:
  // The version 10.15.7 has major 10, minor 15 and patch 7.
  struct OSVersion {
    long long major;
    long long minor;
    long long patch;
  };

  // The values are the numbers of bits.
  enum OSBitness : int {
    Bits32 = 32,
    Bits64 = 64,
  };

  // Reports the version of the running system. Returns false, and leaves `version` unchanged, when
  // the system does not report it. On Linux, the version is that of the kernel.
  static bool GetCurrentOSVersion(OSVersion& version);

  // Builds the system's name for logs: "Mac OS 10.15.7". The name is "Mac OS" on every system,
  // because the readers of the log expect it. The numbers are truncated to 31 characters in total.
  // Always returns true.
  static bool GetCurrentOSName(const OSVersion& version, std::string& name);

  // Builds the version's text, "10.15.7", without truncation. Always returns true.
  static bool GetOSVersionStringFromOSVersion(const OSVersion& version, std::string& text);

  // Reports 32 on a machine that calls itself "i386", and 64 on any other machine. Returns false,
  // and leaves `bitness` unchanged, when the system does not report its machine.
  static bool GetCurrentOSBitness(OSBitness& bitness);
};

}  // namespace TarnUtils
