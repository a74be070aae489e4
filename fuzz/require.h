#pragma once

#include <cstdlib>

// Aborts the program when a condition does not hold; the fuzzer then keeps the input.
inline void Require(bool condition) {
  if (!condition) std::abort();
}
