#include "tests/logging/log_segments.h"

std::time_t g_segments_now = 0;

// Replaces the C library's function.
extern "C" std::time_t time(std::time_t* __timer) {
  if (__timer) *__timer = g_segments_now;
  return g_segments_now;
}
