#pragma once

#include <string>

namespace TarnUtils {

// Facts about the operating system. Any thread may call them.
class OSUtils {
 public:
  // As 10.15.7.
  struct OSVersion {
    long long major;
    long long minor;
    long long patch;
  };

  // The number of bits itself.
  enum OSBitness : int {
    Bits32 = 32,
    Bits64 = 64,
  };

  // The version of the running system. False, with `version` as it was, when the system does not
  // tell.
  static bool GetCurrentOSVersion(OSVersion& version);

  // What the system is called in logs: "Mac OS 10.15.7". It is "Mac OS" everywhere, as the readers
  // of the log expect that, and numbers of more than 31 characters in all are cut off there. Always
  // true.
  static bool GetCurrentOSName(const OSVersion& version, std::string& name);

  // "10.15.7", of any length. Always true.
  static bool GetOSVersionStringFromOSVersion(const OSVersion& version, std::string& text);

  // 32 on a machine that calls itself "i386", 64 on any other. False, with `bitness` as it was,
  // when the system does not tell.
  static bool GetCurrentOSBitness(OSBitness& bitness);
};

}  // namespace TarnUtils
