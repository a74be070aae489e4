#include "helper/process_kind.h"

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

bool IsGpuProcess(const TarnUtils::CommandLineParser& arguments) {
  return HasType(arguments, "gpu-process");
}
