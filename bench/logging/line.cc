#include "bench/logging/line.h"

#include <unistd.h>

std::string ReadyLine(const std::string& name) {
  const std::string separator = " | ";
  std::string line = "11/15/26 21:05:07:042 | [INFO] | " + std::to_string(getpid());
  for (const char* column : {kDomain, kSubDomain, kComponent, "", ""}) {
    line += separator + column;
  }
  line += separator + std::to_string(gettid());
  line += separator + name + " loaded in 123 ms\n";
  return line;
}

std::string PageName() {
  std::string name = "file:///start/page";
  const std::size_t length = ReadyLine(name).size();
  if (length < kLineLength) name.append(kLineLength - length, '/');
  return name;
}
