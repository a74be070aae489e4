#pragma once

#include <map>
#include <string>
#include <vector>

namespace tarn {

// What a log file tells, at its head, about the machine that it was written on.
// NOLINTNEXTLINE(readability-identifier-naming): programs of the suite know it by this name.
struct stLogHeader {
  std::string startLine;
  // A label with its ": ", and what it is about.
  std::map<std::string, std::string> entries;
  std::string endLine;
  // Of one that is given to LogTargetDefault::logHeader(): whether the target takes it into its own
  // one for good, rather than writing it alone.
  bool merge = false;
};

// Looks up the installed suite's version, when there is one, and the system's bitness, locale, name
// and version. Any thread may call it, but for what FileUtils says about identities.
stLogHeader DescribeSystem();

// The entries of `more` take the place of those of `header` with the same label, and its lines the
// place of the header's lines where they are not empty.
void MergeHeader(const stLogHeader& more, stLogHeader& header);

// The lines of the block, in their order: the first, the suite's version, the other entries by
// their labels, and the last. An empty first or last line is left out.
std::vector<std::string> HeaderLines(const stLogHeader& header);

}  // namespace tarn
