// Stress programs: many processes and threads that share one log file, its lock, or the log route.
//
//   shared_log_stress [--full] [options of GoogleTest]
//
// Without --full the sizes are those of the regular test run. With --full a run takes some minutes
// and also asserts on time, so it requires an otherwise idle machine. --gtest_filter selects a
// test, --gtest_repeat=N repeats it, and --gtest_break_on_failure stops at the first failure.

#include <gtest/gtest.h>
#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "tests/stress/stress_options.h"

namespace {

bool g_full_size = false;

bool Take(int& count, char** arguments, const char* option) {
  char** const end = arguments + count;
  char** const found = std::find_if(
      arguments + 1, end, [option](const char* text) { return std::strcmp(text, option) == 0; });
  if (found == end) return false;
  std::copy(found + 1, end + 1, found);
  --count;
  return true;
}

}  // namespace

bool FullSize() { return g_full_size; }

void PrintFigure(const char* format, ...) {
  std::fputs("[  FIGURE  ] ", stdout);
  va_list args;
  va_start(args, format);
  std::vprintf(format, args);
  va_end(args);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

int main(int argc, char** argv) {
  g_full_size = Take(argc, argv, "--full");
  if (Take(argc, argv, "--help")) {
    std::puts(
        "  --full  the full sizes: some minutes, with assertions on time. Without it: the sizes\n"
        "          of the regular test run. Other options are those of GoogleTest, such as\n"
        "          --gtest_filter=PATTERN, --gtest_repeat=N and --gtest_list_tests.");
    return 0;
  }
  testing::InitGoogleTest(&argc, argv);
  if (argc > 1) {
    std::fprintf(stderr, "%s: unknown option %s; --help names them\n", argv[0], argv[1]);
    return 2;
  }
  return RUN_ALL_TESTS();
}
