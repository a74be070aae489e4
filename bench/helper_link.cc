#include "bench/helper_link.h"

#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

std::string Folder() {
  const char* folder = std::getenv("BENCH_START_FOLDER");
  if (!folder) {
    std::fputs("BENCH_START_FOLDER is not set\n", stderr);
    std::exit(EXIT_FAILURE);
  }
  return folder;
}

}  // namespace

HelperLink::HelperLink() : folder_(Folder()) {}

void HelperLink::PointTo(const std::string& helper) const {
  const std::string link = folder_ + "/helper";
  std::remove(link.c_str());
  if (symlink(helper.c_str(), link.c_str()) != 0) {
    std::perror(link.c_str());
    std::exit(EXIT_FAILURE);
  }
}

RendererStart HelperLink::TakeStart() const {
  const std::string path = folder_ + "/started";
  RendererStart start;
  std::ifstream file(path);
  if (!(file >> start.pid >> start.nanoseconds)) {
    std::fprintf(stderr, "no start of a renderer in %s\n", path.c_str());
    std::exit(EXIT_FAILURE);
  }
  std::remove(path.c_str());
  return start;
}
