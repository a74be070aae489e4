#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

// Stands between Chromium and the helper, to know when a renderer's execution began: it writes its
// process identifier, which the helper keeps, and the monotonic clock in nanoseconds to the file
// `started` in the folder BENCH_START_FOLDER, and executes what the link `helper` in there names.

namespace {

void WriteStart(const std::string& path) {
  FILE* file = std::fopen(path.c_str(), "w");
  if (!file) return;  // the browser misses the file and says so
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  std::fprintf(file, "%d %lld\n", static_cast<int>(getpid()),
               static_cast<long long>(now.tv_sec) * 1000000000 + now.tv_nsec);
  std::fclose(file);
}

}  // namespace

int main(int argc, char** argv) {
  const char* folder = std::getenv("BENCH_START_FOLDER");
  if (!folder) return 2;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--type=renderer") == 0) WriteStart(std::string(folder) + "/started");
  }
  const std::string helper = std::string(folder) + "/helper";
  execv(helper.c_str(), argv);
  std::perror(helper.c_str());
  return 127;
}
