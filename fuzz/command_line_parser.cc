// One input is a vector of arguments, separated by NUL bytes.
#include "utils/command_line_parser.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/require.h"

namespace {

std::vector<std::string> SplitAtNul(const std::string& input) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end = input.find('\0'); end != std::string::npos;
       end = input.find('\0', begin)) {
    parts.push_back(input.substr(begin, end - begin));
    begin = end + 1;
  }
  parts.push_back(input.substr(begin));
  return parts;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> arguments =
      SplitAtNul(std::string(reinterpret_cast<const char*>(data), size));
  std::vector<char*> argv;
  argv.reserve(arguments.size());
  for (std::string& argument : arguments)
    argv.push_back(argument.data());

  TarnUtils::CommandLineParser parser;
  Require(parser.parseCommandLineArguments(static_cast<int>(argv.size()), argv.data()));

  // The value of each key comes from one of the arguments.
  for (const std::string& argument : arguments) {
    const std::size_t equals = argument.find('=');
    if (equals == std::string::npos || argument.rfind("--", 0) != 0) continue;
    const std::string key = argument.substr(2, equals - 2);
    std::string value;
    if (!parser.getValueForArgument(key, value)) continue;
    const std::string expected = argument.substr(0, equals + 1) + value;
    bool given = false;
    for (const std::string& other : arguments)
      given = given || other == expected;
    Require(given);
  }
  return 0;
}
