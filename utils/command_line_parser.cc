#include "utils/command_line_parser.h"

#include "platform/begins_with.h"
#include "utils/log_route.h"

namespace TarnUtils {
namespace {

constexpr char kComponent[] = "CommandLineParser";

// Guards against null entries in a caller's vector.
const char* TextOrEmpty(const char* argument) { return argument ? argument : ""; }

}  // namespace

bool CommandLineParser::parseCommandLineArguments(int argc, char** argv) {
  TARN_UTILS_LOG(logger, tarn::INFO, kComponent,
                 "Parsing the command line provided. Number of command line arguments is %d", argc);
  if (argc < 1) {
    TARN_UTILS_LOG(
        logger, tarn::ERROR, kComponent,
        "Argument count is zero. There should be at least one i.e. name of application.");
    return false;
  }
  TARN_UTILS_LOG(logger, tarn::DEBUG, kComponent,
                 "First command line argument is %s, Assuming the first argument to be executable "
                 "address ignoring it.",
                 TextOrEmpty(argv[0]));
  for (int i = 1; i < argc; ++i) {
    const char* const argument = TextOrEmpty(argv[i]);
    TARN_UTILS_LOG(logger, tarn::DEBUG, kComponent, "Argument specified is %s", argument);
    AddArgument(argument);
  }
  return true;
}

void CommandLineParser::AddArgument(const std::string& argument) {
  // The system's application launcher adds the serial number of the process.
  if (platform::BeginsWith(argument, "-psn")) return;

  const auto equals = argument.find('=');
  if (equals == std::string::npos) {
    TARN_UTILS_LOG(logger, tarn::ERROR, kComponent, R"(The argument does not contain any "=")");
    return;
  }
  if (!platform::BeginsWith(argument.substr(0, equals), "--")) {
    TARN_UTILS_LOG(logger, tarn::ERROR, kComponent,
                   R"(The "--" is not there for the argument. Every argument should have "--")");
    return;
  }
  const std::string key = argument.substr(2, equals - 2);
  const std::string value = argument.substr(equals + 1);
  if (key.empty() || value.empty()) {
    TARN_UTILS_LOG(logger, tarn::ERROR, kComponent, "The argument key or value is empty for %s",
                   argument.c_str());
  } else if (!arguments_.emplace(key, value).second) {
    TARN_UTILS_LOG(logger, tarn::ERROR, kComponent, "The argument %s already sepecified",
                   key.c_str());
  }
}

bool CommandLineParser::getValueForArgument(const std::string& key, std::string& value) const {
  const auto found = arguments_.find(key);
  if (found == arguments_.end()) return false;
  value = found->second;
  return true;
}

}  // namespace TarnUtils
