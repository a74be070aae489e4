// One input is the path of a log file, two dates, and the names in the log's folder, each ended by
// a NUL byte.
#include "logging/retention.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>

#include "fuzz/require.h"
#include "platform/begins_with.h"

using platform::BeginsWith;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
  std::string path;
  std::vector<std::string> dates(2);
  std::getline(input, path, '\0');
  for (std::string& date : dates)
    std::getline(input, date, '\0');
  std::vector<std::string> names;
  for (std::string name; std::getline(input, name, '\0');)
    names.push_back(name);
  // Names in a folder are unique.
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());

  const tarn::LogFileNames log = tarn::NamesOf("/" + path);
  const std::vector<std::string> removed = tarn::SelectCopiesToRemove(names, log, "", dates);
  std::vector<std::string> remaining;
  for (const std::string& name : names) {
    if (std::find(removed.begin(), removed.end(), name) == removed.end()) remaining.push_back(name);
  }
  // Each removed name is in the folder, appears once, and begins with the base of the log's names.
  Require(removed.size() + remaining.size() == names.size());
  for (const std::string& name : removed)
    Require(BeginsWith(name, log.base));
  // At most one copy more than there are dates stays. The live file counts as a copy.
  std::vector<std::string> kept;
  std::size_t live = 0;
  for (const std::string& name : remaining) {
    if (name == log.live) {
      live = 1;
    } else if (BeginsWith(name, log.base)) {
      kept.push_back(name);
    }
  }
  Require(kept.size() + live <= dates.size() + 1);
  const auto is_copy = [&](const std::string& name) {
    return std::any_of(dates.begin(), dates.end(), [&](const std::string& date) {
      return BeginsWith(name, log.base + " " + date);
    });
  };
  for (const std::string& name : kept)
    Require(is_copy(name));
  // A copy of one of the dates goes only when too many copies exist, and the first in byte order
  // goes first.
  for (const std::string& name : removed) {
    Require(name != log.live);
    if (!is_copy(name)) continue;
    Require(kept.size() + live == dates.size() + 1 && name < kept.front());
  }
  return 0;
}
