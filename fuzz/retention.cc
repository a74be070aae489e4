// One input is the path of a log file, two dates, and the names in its folder, each ended by a zero
// byte.
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
  // A folder has no two entries of one name.
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());

  const tarn::LogFileNames log = tarn::NamesOf("/" + path);
  const std::vector<std::string> gone = tarn::SelectCopiesToRemove(names, log, "", dates);
  std::vector<std::string> stay;
  for (const std::string& name : names) {
    if (std::find(gone.begin(), gone.end(), name) == gone.end()) stay.push_back(name);
  }
  // Each name goes or stays, once; what goes is the log's, and of the log's at most three stay.
  Require(gone.size() + stay.size() == names.size());
  for (const std::string& name : gone)
    Require(BeginsWith(name, log.base));
  // The live file among them, which counts as the last one.
  std::vector<std::string> kept;
  std::size_t live = 0;
  for (const std::string& name : stay) {
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
  // Of the copies of these days, none goes that sorts behind one that stays, and none without need.
  for (const std::string& name : gone) {
    Require(name != log.live);
    if (!is_copy(name)) continue;
    Require(kept.size() + live == dates.size() + 1 && name < kept.front());
  }
  return 0;
}
