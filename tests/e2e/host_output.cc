#include "tests/e2e/host_output.h"

#include "tests/support/child_process.h"

HostOutput RunHost(const std::string& program, const std::vector<std::string>& arguments,
                   const std::map<std::string, std::string>& environment) {
  std::vector<std::string> command = {"sh", "-c", R"(exec "$0" "$@" 2>&1)", program};
  command.insert(command.end(), arguments.begin(), arguments.end());
  ChildProcess::Options options;
  options.environment = environment;
  options.environment.try_emplace("DISPLAY", ":99999");
  ChildProcess host(command, options);
  HostOutput output;
  std::string line;
  while (host.ReadLine(line))
    output.lines.push_back(line);
  output.status = host.Wait();
  return output;
}
