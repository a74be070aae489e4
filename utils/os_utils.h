#pragma once

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

  // The version of the running system. False, with `version` as it was, when the system does not
  // tell.
  static bool GetCurrentOSVersion(OSVersion& version);
};

}  // namespace TarnUtils
