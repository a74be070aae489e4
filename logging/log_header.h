#pragma once

#include <map>
#include <string>
#include <vector>

namespace tarn {

// The block at the head of a log file that describes the machine.
// NOLINTNEXTLINE(readability-identifier-naming): programs of the suite use this name.
struct stLogHeader {
  std::string startLine;
  // Labels, each with its ": ", and their values.
  std::map<std::string, std::string> entries;
  std::string endLine;
  // If true, LogTargetDefault::logHeader() merges this header permanently into the target's own
  // header. Otherwise the target writes this header alone.
  bool merge = false;
};

// Returns a header with the version of the installed suite, if there is one, and the system's
// bitness, locale, name and version. Any thread may call it while no thread changes the process's
// environment.
stLogHeader DescribeSystem();

// Adds the entries of `more` to `header`, where they replace entries with the same label. The first
// and last lines of `more` replace those of `header` unless they are empty.
void MergeHeader(const stLogHeader& more, stLogHeader& header);

// Returns the lines of the block in order: the first line, the suite's version, the other entries
// sorted by label, and the last line. An empty first or last line is left out.
std::vector<std::string> HeaderLines(const stLogHeader& header);

}  // namespace tarn
