#pragma once

#include <map>
#include <string>
#include <vector>

// The output and exit status of an example browser that ends before it opens a page.
struct HostOutput {
  std::vector<std::string> lines;  // of standard output and standard error
  int status;
};

// Runs `program` with `arguments` until it ends. The program has no display unless `environment`
// sets DISPLAY.
HostOutput RunHost(const std::string& program, const std::vector<std::string>& arguments,
                   const std::map<std::string, std::string>& environment = {});
