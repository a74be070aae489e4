#pragma once

#include <cstdlib>

// Ends the program when what must hold does not: the fuzzer keeps the input.
inline void Require(bool condition) {
  if (!condition) std::abort();
}
