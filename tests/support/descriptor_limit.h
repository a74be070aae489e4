#pragma once

#include <sys/resource.h>
#include <cstdlib>

// Prevents this process from opening descriptors with the number `first` or above. Restores the
// limit at the end of the scope, because the leak sanitizer opens files when the process ends.
class DescriptorLimit {
 public:
  explicit DescriptorLimit(int first) {
    if (getrlimit(RLIMIT_NOFILE, &before_) != 0) std::abort();
    Set({static_cast<rlim_t>(first), before_.rlim_max});
  }
  ~DescriptorLimit() { Set(before_); }
  DescriptorLimit(const DescriptorLimit&) = delete;
  DescriptorLimit& operator=(const DescriptorLimit&) = delete;

 private:
  static void Set(const rlimit& limit) {
    if (setrlimit(RLIMIT_NOFILE, &limit) != 0) std::abort();
  }

  rlimit before_{};
};
