#pragma once

#include <cerrno>

namespace platform {

// Makes a system call, and repeats it whenever a signal interrupted it. Returns the result of the
// last call: -1, with `errno` set, after any other error.
template <typename Call>
auto RetryWhenInterrupted(const Call& call) {
  auto result = call();
  while (result == -1 && errno == EINTR)
    result = call();
  return result;
}

}  // namespace platform
