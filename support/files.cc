#include "support/files.h"

#include <sys/stat.h>
#include <cstdlib>
#include <fstream>
#include <iterator>

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> ReadLines(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);)
    lines.push_back(line);
  return lines;
}

void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  if (!file) std::abort();
}

int ModeOf(const std::string& path) {
  struct stat attributes {};
  return lstat(path.c_str(), &attributes) == 0 ? static_cast<int>(attributes.st_mode & 07777) : -1;
}
