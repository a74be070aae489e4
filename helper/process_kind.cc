#include "helper/process_kind.h"

#include <algorithm>
#include <string>

namespace {

bool HasType(const TarnUtils::CommandLineParser& arguments, const char* expected) {
  std::string type;
  return arguments.getValueForArgument("type", type) && type == expected;
}

}  // namespace

bool IsRenderer(const TarnUtils::CommandLineParser& arguments) {
  return HasType(arguments, "renderer");
}

bool IsZygote(const TarnUtils::CommandLineParser& arguments) {
  return HasType(arguments, "zygote");
}

bool IsGpuProcess(const TarnUtils::CommandLineParser& arguments) {
  return HasType(arguments, "gpu-process");
}

bool HasSandbox(int argc, const char* const* argv) {
  return std::none_of(argv, argv + argc, [](const char* argument) {
    return argument && std::string(argument) == "--no-sandbox";
  });
}
