#include "include/internal/cef_rejected.h"

#include <cstdio>
#include <cstdlib>

void cef_binding::FailAssertion([[maybe_unused]] const char* function) {
#ifndef NDEBUG
  std::fprintf(stderr, "cef_binding: %s: a required parameter is null, empty or negative\n",
               function);
  std::abort();
#endif
}
