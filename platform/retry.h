#pragma once

#include <cerrno>

namespace platform {

// Repeats a system call until no signal interrupts it. Returns the result of the last call: -1,
// with `errno` set, after any other error.
template <typename Call>
auto RetryWhenInterrupted(const Call& call) {
  auto result = call();
  while (result == -1 && errno == EINTR)
    result = call();
  return result;
}

}  // namespace platform
