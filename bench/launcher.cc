#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

// Records the start of a renderer, then becomes the helper. The launcher writes its process
// identifier, which the helper keeps, and the monotonic clock in nanoseconds to the file `started`
// in the folder BENCH_START_FOLDER. It then executes the target of the link `helper` in this
// folder.

namespace {

void WriteStart(const std::string& path) {
  FILE* file = std::fopen(path.c_str(), "w");
  if (!file) return;  // the browser reports the missing file
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
