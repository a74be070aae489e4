#pragma once

#include <map>
#include <string>

#include "logging/abstract_logger.h"

namespace TarnUtils {

// The arguments of a program that have the form --key=value, by key. Every other argument is
// reported through the log and left out. Not synchronised.
class CommandLineParser {
 public:
  CommandLineParser() = default;
  CommandLineParser(const CommandLineParser&) = delete;
  CommandLineParser& operator=(const CommandLineParser&) = delete;

  // Adds the arguments behind the first one, which names the program. The first value of a key
  // stays, also over several calls. `argv` holds `argc` entries, of which null ones count as empty
  // texts; it is read during the call only. Returns false only when `argc` is below 1.
  bool parseCommandLineArguments(int argc, char** argv);

  // Looks `key` up as it is, without dashes and in its case, and copies its value. Returns false,
  // and leaves `value` alone, when there is none.
  bool getValueForArgument(const std::string& key, std::string& value) const;

 private:
  void AddArgument(const std::string& argument);

  std::map<std::string, std::string> arguments_;

 protected:
  // Takes the parser's messages instead of the library's log route when it is not null; not owned.
  tarn::AbstractLogger* logger = nullptr;
};

}  // namespace TarnUtils
