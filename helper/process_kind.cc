#include "helper/process_kind.h"

#include <string>

bool IsGpuProcess(TarnUtils::CommandLineParser& arguments) {
  std::string type;
  return arguments.getValueForArgument("type", type) && type == "gpu-process";
}
