#pragma once

#include <map>
#include <string>

#include "logging/abstract_logger.h"

namespace TarnUtils {

// Collects a program's arguments of the form --key=value, in which neither part is empty. Ignores
// other arguments and logs them as errors, except those that begin with "-psn", which the system's
// application launcher adds. Logs every argument at debug level. Not thread-safe.
class CommandLineParser {
 public:
  CommandLineParser() = default;
  CommandLineParser(const CommandLineParser&) = delete;
  CommandLineParser& operator=(const CommandLineParser&) = delete;

  // Adds the arguments after the first one, which names the program. The first value of a key
  // stays, even across calls; each later one is logged as an error. `argv` holds `argc` entries and
  // is read only during the call; null entries count as empty strings. Returns false only when
  // `argc` is below 1.
  bool parseCommandLineArguments(int argc, char** argv);

  // Copies the value of `key`, which is given without dashes and is case-sensitive. Returns false,
  // and leaves `value` unchanged, when the key is missing.
  bool getValueForArgument(const std::string& key, std::string& value) const;

 private:
  void AddArgument(const std::string& argument);

  std::map<std::string, std::string> arguments_;

 protected:
  // Receives the parser's messages in place of the library's log route when not null. Not owned.
  tarn::AbstractLogger* logger = nullptr;
};

}  // namespace TarnUtils
